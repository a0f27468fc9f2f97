#pragma once

#include <atomic>
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

    /// Read number `number`, counted from 1, and those behind it wait for `release`, the ones before it no
    /// longer.
    void holdFrom(unsigned number);
    void release() { holdFrom(0); }

    // Static, as a worker may be in the middle of a read when the program ends.
    static inline std::atomic<unsigned> delayMs; ///< which every further read takes longer
    static inline std::atomic<unsigned> reads;   ///< made so far
    static inline std::atomic<unsigned> holds;   ///< that were held so far
    static inline std::atomic<unsigned> failAt;  ///< the read that is to fail; 0 once it has
    static inline std::atomic<int> error;        ///< of the system, with which it fails
    static inline std::atomic<unsigned> heldFrom;
};

} // namespace quillon::tests
