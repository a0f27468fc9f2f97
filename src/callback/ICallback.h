#pragma once

namespace quillon::callback {

/// One listener to messages of the type `Tuple`.
template <class Tuple>
class ICallback
{
public:
    virtual ~ICallback() = default;

    /// Takes a message, on the thread that delivers it and with no lock of the set held.
    virtual void onCallback(const Tuple& tuple) = 0;
};

} // namespace quillon::callback
