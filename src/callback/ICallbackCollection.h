#pragma once

#include "callback/ICallback.h"
#include "err/ResultCode.h"

namespace quillon::callback {

/// The side of a set of listeners where they register. The set does not own them.
template <class Tuple>
class ICallbackCollection
{
public:
    virtual ~ICallbackCollection() = default;

    /// Appends a listener; one that is registered already stays where it is. {5, 6} for a null pointer.
    virtual err::ResultCode addCallback(ICallback<Tuple>* callback) = 0;

    /// Takes a listener out; one that is not registered is no failure. {5, 6} for a null pointer.
    virtual err::ResultCode removeCallback(ICallback<Tuple>* callback) = 0;

    virtual err::ResultCode clearCallbacks() = 0;
};

} // namespace quillon::callback
