#pragma once

#include <chrono>
#include <string>

namespace quillon::tests {

/// Faults in the reads of one file, wherever in this program they are made: the program that links this has a
/// read(2) of its own, which stands in front of the C library's. One ReadFaults at a time; any thread may
/// call. Unix only, since elsewhere a program cannot stand in front of the system's functions.
class ReadFaults
{
public:
    /// Counts the reads of the file at `path` (UTF-8), which must exist, from now on.
    explicit ReadFaults(const std::string& path);

    /// Lets all reads go as they are. Does not wait for them.
    ~ReadFaults();

    ReadFaults(const ReadFaults&) = delete;
    ReadFaults& operator=(const ReadFaults&) = delete;

    /// Every further read takes so much longer.
    void delayEach(std::chrono::milliseconds delay);

    /// Read number `number`, counted from 1, fails with the system error `error`.
    void fail(unsigned number, int error);

    /// Read number `number` and those behind it wait for `release`, the ones before it no longer.
    void holdFrom(unsigned number);
    void release();

    /// How often each has really happened.
    [[nodiscard]] unsigned reads() const;
    [[nodiscard]] unsigned failures() const;
    [[nodiscard]] unsigned holds() const;
};

} // namespace quillon::tests
