#pragma once

#include <cstdint>

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

} // namespace quillon::crypto
