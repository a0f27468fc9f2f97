#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

namespace quillon::tests {

/// While it lives, root reads and writes files as anybody does; for everybody else it changes nothing. It
/// holds for the thread that made it, and for the threads that this one starts meanwhile. Unix only.
class OrdinaryUser
{
public:
    OrdinaryUser() { setfsuid(kNobody); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { setfsuid(geteuid()); }

private:
    static constexpr uid_t kNobody = 65534;
};

} // namespace quillon::tests
