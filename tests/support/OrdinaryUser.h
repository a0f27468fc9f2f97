#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

namespace quillon::tests {

/// While it lives, root reads and writes files as anybody does; for everybody else it changes nothing. It
/// holds for the thread that made it, and for the threads that this one starts meanwhile. Unix only.
class OrdinaryUser
{
public:
    OrdinaryUser() { setfsuid(65534); } // nobody
    ~OrdinaryUser() { setfsuid(geteuid()); }
};

} // namespace quillon::tests
