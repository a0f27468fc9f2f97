#include "web/unix/SlowLookUp.h"

#include <dlfcn.h>
#include <netdb.h>

#include <atomic>
#include <cstring>

namespace {

std::atomic<bool> isHeld{false};
std::atomic<bool> isReleased{false};

} // namespace

extern "C" __attribute__((visibility("default"))) int
getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) noexcept(false)
{
    if (node != nullptr && std::strcmp(node, quillon::tests::kSlowHost) == 0) {
        isHeld = true;
        isReleased.wait(false);
        return EAI_NONAME;
    }
    static const auto next = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return next(node, service, hints, result);
}

namespace quillon::tests {

bool isLookingUp()
{
    return isHeld;
}

void releaseSlowLookUps()
{
    isReleased = true;
    isReleased.notify_all();
}

} // namespace quillon::tests
