#pragma once

#include "crypto/HashResult.h"
#include "io/IIStream.h"

#include <cstdint>
#include <string>

namespace quillon::crypto {

/// Hears how far a run has come.
class IHashProgressCallback
{
public:
    virtual ~IHashProgressCallback() = default;

    /// Comes on the thread of the run, at most once per interval. `percent` is 0 to 100. No report of 100
    /// percent is promised: the end of a run is not reported here. `userData` is what the run was given.
    virtual void onHashProgress(std::int64_t processedBytes, float percent, void* userData) = 0;
};

/// Hears the whole course of a run. All calls come on the thread of the run and while the calculator still
/// counts as running, so the digest must be fetched after `calculate` has returned.
class IHashCallback : public IHashProgressCallback
{
public:
    virtual void onHashStarted(void* userData) = 0;

    /// The last call of IHash::calculate. `stopped` says that a stop was asked for; one that came after the
    /// last read was too late, and then `result` is a success all the same.
    virtual void onHashFinished(bool stopped, const HashResult& result, void* userData) = 0;

    /// Asked every now and then while a file is waited for before a run: whether to give it up.
    [[nodiscard]] virtual bool isHashStopRequested() const { return false; }

    /// Follows the end of a run that succeeded, where somebody wrote to the file while it was read: the
    /// digest may be that of no state that the file ever had.
    virtual void onHashFileChanged() {}
};

/// The reading buffer of the short forms of `calculate`, in bytes.
inline constexpr std::int32_t kDefaultBufferBytes = 32768;

/// The least time between two progress reports in the short forms of `calculate`, in milliseconds.
inline constexpr std::uint32_t kDefaultProgressIntervalMs = 400;

/// Computes the digest of one stream at a time. `calculate` works on the thread that calls it; every other
/// operation may be called from any thread at any time.
class IHash
{
public:
    using Stream = io::internal::IIStream<char>;

    virtual ~IHash() = default;

    [[nodiscard]] virtual std::uint32_t getLibraryId() const = 0;
    [[nodiscard]] virtual std::uint32_t getAlgorithmId() const = 0;

    /// Length of the digest in bytes.
    [[nodiscard]] virtual std::int32_t getDigestSize() const = 0;

    [[nodiscard]] virtual bool isRunning() const = 0;

    /// Always 0: how far a run has come is told to its callback alone.
    [[nodiscard]] virtual float getProgress() const = 0;

    /// Reads `stream` to the size it had at the start and stores the digest. `bufferBytes` is the size of one
    /// read, `intervalMs` the least time between two progress reports; `callback` may be null, and `userData`
    /// is handed to it untouched. Stream and callback stay the caller's.
    ///
    /// (5, 5) for a null stream or a buffer without room, (5, 8) while a run is going on; neither has any
    /// other effect. (5, 1004) for a run that `stop` ended. A failed read gives the stream's error and (5,
    /// 60), a failed engine the engine's own result. After any failure the stored digest is all zero bytes,
    /// and the calculator is only good for being destroyed. A stream that ends before its size, as a file cut
    /// short does, makes the run go on until `stop`, with pauses of some milliseconds.
    ///
    /// Where memory runs out std::bad_alloc leaves this call, and the calculator counts as running for good.
    virtual HashResult calculate(Stream* stream) = 0;
    virtual HashResult calculate(Stream* stream, IHashCallback* callback) = 0;
    virtual HashResult calculate(Stream* stream, std::int32_t bufferBytes, std::uint32_t intervalMs,
                                 IHashCallback* callback) = 0;
    virtual HashResult calculate(Stream* stream, std::int32_t bufferBytes, std::uint32_t intervalMs,
                                 IHashCallback* callback, void* userData) = 0;

    /// Asks the run to end, which it does at the latest after the read in hand. A request that comes before
    /// the run has begun is lost.
    virtual void stop() = 0;

    /// Copies the digest of the last run to `output`, which has room for `size` bytes: (5, 6) for a null
    /// pointer, (5, 10) for too little room, (5, 8) during a run. After a failed run it succeeds with zero
    /// bytes, so look at the run's result first.
    virtual HashResult getDigest(void* output, std::int32_t size) const = 0;

    /// Sets `text` to the digest in hexadecimal, as bytesToHex writes it. (5, 8) during a run.
    virtual HashResult getDigestHex(std::wstring& text) const = 0;
    virtual HashResult getDigestHex(std::string& text) const = 0;
};

} // namespace quillon::crypto
