#pragma once

#include <string>

namespace quillon::trres::internal {

/// Takes what a translation file says, in the order of the file, on the thread that reads.
template <class Char>
class ITrResReadCallback
{
public:
    using Text = std::basic_string<Char>;

    virtual ~ITrResReadCallback() = default;

    /// `path` is as it stands in the file, backslashes included.
    virtual void onInclude(const Text& path) = 0;

    /// A use of a defined item in the context `extra`, and a definition: `first` is the source text, `second`
    /// its translation. The format has no syntax for these two yet.
    virtual void onUseItem(const Text& name, const Text& extra) = 0;
    virtual void onDefineItem(const Text& name, const Text& first, const Text& second, const Text& extra) = 0;

    virtual void onItem(const Text& context, const Text& source, const Text& translation) = 0;
};

} // namespace quillon::trres::internal
