#include "support/ReadFaults.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace quillon::tests {
namespace {

// Asked at every read of the program, also at those before and after main. No file has the number 0.
std::atomic<ino_t> node{0};
std::atomic<dev_t> device{0};

bool isWatched(int descriptor)
{
    struct stat status = {};
    return node != 0 && fstat(descriptor, &status) == 0 && status.st_ino == node && status.st_dev == device;
}

/// What there is for this read; the answer is the error to fail with, or 0.
int undergo()
{
    unsigned number = ++ReadFaults::reads;
    unsigned from = ReadFaults::heldFrom;
    if (from != 0 && number >= from)
        ++ReadFaults::holds;
    for (; from != 0 && number >= from; from = ReadFaults::heldFrom)
        ReadFaults::heldFrom.wait(from);
    std::this_thread::sleep_for(std::chrono::milliseconds(ReadFaults::delayMs));
    return ReadFaults::failAt.compare_exchange_strong(number, 0) ? ReadFaults::error.load() : 0;
}

} // namespace

ReadFaults::ReadFaults(const std::string& path)
{
    struct stat status = {};
    stat(path.c_str(), &status);
    for (auto* const value : {&delayMs, &reads, &holds, &failAt, &heldFrom})
        *value = 0;
    device = status.st_dev;
    node = status.st_ino;
}

ReadFaults::~ReadFaults()
{
    node = 0;
    failAt = 0;
    release();
}

void ReadFaults::holdFrom(unsigned number)
{
    heldFrom = number;
    heldFrom.notify_all();
}

} // namespace quillon::tests

extern "C" ssize_t read(int descriptor, void* buffer, size_t count)
{
    using Read = ssize_t (*)(int, void*, size_t);
    // The next one in line rather than the bare system call: it may be a sanitizer's, which must see the
    // read.
    static const auto next = reinterpret_cast<Read>(dlsym(RTLD_NEXT, "read"));
    const int fault = quillon::tests::isWatched(descriptor) ? quillon::tests::undergo() : 0;
    if (fault != 0)
        errno = fault;
    return fault != 0 ? -1 : next(descriptor, buffer, count);
}
