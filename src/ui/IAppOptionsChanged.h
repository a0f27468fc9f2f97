#pragma once

#include "ui/SAppOptions.h"

namespace thisapp {

/// Takes over what the user chose in the options dialog.
class IAppOptionsChanged
{
public:
    virtual ~IAppOptionsChanged() = default;

    /// Stores `options` and applies them to the running program. Called on the user interface thread, also
    /// while the dialog is still open.
    virtual void onAppOptionsChanged(const SAppOptions& options) = 0;
};

} // namespace thisapp
