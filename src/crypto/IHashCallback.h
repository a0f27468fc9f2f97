#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHashProgressCallback.h"

namespace quillon::crypto {

/// Hears the whole course of a run. All calls come on the thread of the run and while the calculator still
/// counts as running, so the digest must be fetched after `calculate` has returned.
class IHashCallback : public IHashProgressCallback
{
public:
    virtual void onHashStarted(void* userData) = 0;

    /// The last call of a run. `stopped` says that a stop was asked for; one that came after the last read
    /// was too late, and then `result` is a success all the same.
    virtual void onHashFinished(bool stopped, const HashResult& result, void* userData) = 0;
};

} // namespace quillon::crypto
