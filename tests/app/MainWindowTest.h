#pragma once

#include "app/MainWindowDriver.h"
#include "settings/CAppSettings.h"
#include "support/TempFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QString>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace quillon::tests {

/// A test of the window: a folder for its files, and settings that are still untouched.
class MainWindowTest : public testing::Test
{
protected:
    MainWindowTest() { CAppSettings().clear(); }

    // All names come as Qt writes them, with "/" on every system.
    QString write(std::string_view name, std::string_view bytes) const
    {
        return asQtWrites(folder.write(name, bytes));
    }

    QString nameOf(std::string_view name) const { return asQtWrites(folder.file(name)); }
    QString folderName() const { return asQtWrites(folder.path()); }

    static QString asQtWrites(const std::filesystem::path& path)
    {
        return QDir::fromNativeSeparators(QString::fromStdString(utf8Name(path)));
    }

    TempFolder folder;
};

/// The digest as the window must show it, by Qt's implementation.
inline QString sha256Hex(const std::string& bytes)
{
    const QByteArray data = QByteArray::fromStdString(bytes);
    return QString::fromLatin1(QCryptographicHash::hash(data, QCryptographicHash::Sha256).toHex().toUpper());
}

/// As many bytes as the program reads in `blocks` reads.
inline std::string blocksOfBytes(unsigned blocks)
{
    constexpr std::size_t kReadBytes = 32768;
    std::string bytes(blocks * kReadBytes, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    return bytes;
}

} // namespace quillon::tests
