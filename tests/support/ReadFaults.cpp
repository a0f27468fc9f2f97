#include "support/ReadFaults.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <system_error>

namespace quillon::tests {
namespace {

struct Plan
{
    dev_t device = 0;
    ino_t node = 0;
    std::chrono::milliseconds delay{0};
    unsigned failAt = 0;
    int error = 0;
    unsigned holdFrom = 0;
    bool isOver = false;
    unsigned reads = 0;
    unsigned failures = 0;
    unsigned holds = 0;
};

struct Shared
{
    std::mutex lock;
    std::condition_variable changed;
    Plan plan;
};

// Asked at every read of the program, also at those before and after main.
std::atomic<bool> isArmed{false};

Shared& shared()
{
    // Never destroyed: a worker may be in the middle of a read when the program ends.
    static auto* const instance = new Shared;
    return *instance;
}

template <class Change>
void change(Change apply)
{
    const std::lock_guard guard(shared().lock);
    apply(shared().plan);
    shared().changed.notify_all();
}

unsigned ask(unsigned Plan::*count)
{
    const std::lock_guard guard(shared().lock);
    return shared().plan.*count;
}

bool isFileOfPlan(int descriptor)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return false;
    const std::lock_guard guard(shared().lock);
    return status.st_dev == shared().plan.device && status.st_ino == shared().plan.node;
}

/// What the plan has for this read; the answer is the error to fail with, or 0.
int undergo()
{
    std::unique_lock guard(shared().lock);
    Plan& plan = shared().plan;
    const unsigned number = ++plan.reads;
    shared().changed.wait_for(guard, plan.delay, [&plan] { return plan.isOver; });
    const auto isFree = [&plan, number] {
        return plan.isOver || plan.holdFrom == 0 || number < plan.holdFrom;
    };
    if (!isFree()) {
        ++plan.holds;
        shared().changed.wait(guard, isFree);
    }
    if (number != plan.failAt || plan.isOver)
        return 0;
    ++plan.failures;
    return plan.error;
}

} // namespace

ReadFaults::ReadFaults(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        throw std::system_error(errno, std::generic_category(), path);
    change([&status](Plan& plan) {
        plan = Plan{};
        plan.device = status.st_dev;
        plan.node = status.st_ino;
    });
    isArmed = true;
}

ReadFaults::~ReadFaults()
{
    isArmed = false;
    change([](Plan& plan) { plan.isOver = true; });
}

void ReadFaults::delayEach(std::chrono::milliseconds delay)
{
    change([delay](Plan& plan) { plan.delay = delay; });
}

void ReadFaults::fail(unsigned number, int error)
{
    change([number, error](Plan& plan) {
        plan.failAt = number;
        plan.error = error;
    });
}

void ReadFaults::holdFrom(unsigned number)
{
    change([number](Plan& plan) { plan.holdFrom = number; });
}

void ReadFaults::release()
{
    holdFrom(0);
}

unsigned ReadFaults::reads() const
{
    return ask(&Plan::reads);
}

unsigned ReadFaults::failures() const
{
    return ask(&Plan::failures);
}

unsigned ReadFaults::holds() const
{
    return ask(&Plan::holds);
}

} // namespace quillon::tests

extern "C" ssize_t read(int descriptor, void* buffer, size_t count)
{
    using Read = ssize_t (*)(int, void*, size_t);
    // The next one in line rather than the bare system call: it may be a sanitizer's, which must see the
    // read.
    static const auto next = reinterpret_cast<Read>(dlsym(RTLD_NEXT, "read"));
    if (quillon::tests::isArmed && quillon::tests::isFileOfPlan(descriptor)) {
        if (const int error = quillon::tests::undergo(); error != 0) {
            errno = error;
            return -1;
        }
    }
    return next(descriptor, buffer, count);
}
