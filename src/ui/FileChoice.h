#pragma once

#include <QString>

class QWidget;

/// Asks the user for one file that exists and returns its path, empty where the user cancels. `parent` waits
/// for the answer; `filter` is what a file dialog takes, empty for all files.
[[nodiscard]] QString chooseFile(QWidget* parent, const QString& title, const QString& filter = {});
