#pragma once

#include "callback/ICallback.h"

namespace quillon::callback {

/// The side of a set of listeners that delivers messages.
template <class Tuple>
class ICallbackHandler
{
public:
    virtual ~ICallbackHandler() = default;

    /// Hands `tuple` to every listener but `source`, in the order of adding. `source` lets a listener tell
    /// all the others; it may be null, and then nobody is left out.
    virtual void handleCallback(ICallback<Tuple>* source, const Tuple& tuple) = 0;
};

} // namespace quillon::callback
