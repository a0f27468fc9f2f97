#pragma once

#include <string>
#include <string_view>

namespace quillon::shellhelper {

/// The program of a command line that starts it with the item alone, in the form that the contract of the
/// context menu functions tells. Empty where the line has another form.
[[nodiscard]] std::string programOfCommand(std::string_view line);

} // namespace quillon::shellhelper
