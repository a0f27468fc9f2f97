#pragma once

#include "app/MainWindowDriver.h"
#include "settings/CAppSettings.h"
#include "support/Bytes.h"
#include "support/TempFolder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace quillon::tests {

/// A test of the window: a folder for its files, and settings that are still untouched.
class MainWindowTest : public testing::Test
{
protected:
    MainWindowTest() { CAppSettings().clear(); }

    // All names come as Qt writes them, with "/" on every system.
    QString nameOf(std::string_view name) const
    {
        return QDir::fromNativeSeparators(QString::fromStdString(utf8Name(folder.file(name))));
    }
    QString folderName() const { return nameOf("x").section('/', 0, -2); }

    QString write(std::string_view name, std::string_view bytes) const
    {
        folder.write(name, bytes);
        return nameOf(name);
    }

    TempFolder folder;
    const QString plainCaption = "Calculated hash for the file";
};

/// As many bytes as the program reads in `blocks` reads.
inline std::string blocksOfBytes(unsigned blocks)
{
    return patternBytes(blocks * std::size_t{32768});
}

} // namespace quillon::tests
