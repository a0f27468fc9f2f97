#include "app/CommandLine.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace thisapp {
namespace {

struct Row
{
    QStringList arguments;
    QString file;
    std::uint32_t algorithmId;
    bool start;
};

const Row kRows[]{
    {{}, "", 0, false},
    // A lone argument is never a key, and here it names no file either.
    {{"/start"}, "", 0, false},
    {{"-ifile"}, "", 0, false},
    {{"   "}, "", 0, false},
    {{""}, "", 0, false},
    {{"/ifile", "x.bin"}, "x.bin", 0, false},
    {{"-ifile", "x.bin"}, "x.bin", 0, false},
    {{"/IFile", " \tx y.bin  "}, "x y.bin", 0, false},
    {{"/ifile", "ü文.bin", "-START"}, "ü文.bin", 0, true},
    {{"/start", "/a", "md5", "/ifile", "x.bin"}, "x.bin", 303, true},
    {{"-A", "sha3-512"}, "", 23, false},
    {{"/alg", "Skein1024-1024"}, "", 110, false},
    {{"/ALGORITHM", "CRC32"}, "", 401, false},
    {{"/start", "/start"}, "", 0, true},
    // Later keys win, save that an unknown name leaves the former one.
    {{"/ifile", "x.bin", "/ifile", "y.bin"}, "y.bin", 0, false},
    {{"/ifile", "x.bin", "/ifile", ""}, "", 0, false},
    {{"/a", "SHA1", "/alg", "MD2"}, "", 300, false},
    {{"/a", "SHA1", "/a", "SHA-1"}, "", 1, false},
    {{"/a", "SHA-25", "/ifile", "x.bin"}, "x.bin", 0, false},
    {{"/a", " SHA-256"}, "", 0, false},
    // A value never begins like a key; what is refused is read as a token of its own.
    {{"/ifile", "/home/x.bin"}, "", 0, false},
    {{"/ifile", "-x.bin", "/start"}, "", 0, true},
    {{"/ifile", "/start"}, "", 0, true},
    {{"/ifile", "/a", "MD5"}, "", 303, false},
    {{"/start", "/ifile"}, "", 0, true},
    {{"/start", "/a"}, "", 0, true},
    // What is not understood is skipped, and so is a value that no key asked for.
    {{"x.bin", "y.bin"}, "", 0, false},
    {{"/unknown", "/ifile", "x.bin"}, "x.bin", 0, false},
    {{"ifile", "x.bin"}, "", 0, false},
    {{"--ifile", "x.bin"}, "", 0, false},
    {{"/ifile2", "x.bin"}, "", 0, false},
    {{"/ifil", "x.bin"}, "", 0, false},
    {{"", "", "/start"}, "", 0, true},
};

TEST(CommandLine, IsReadAsTheTableSays)
{
    for (const Row& row : kRows) {
        const CommandLine read = parseCommandLine(row.arguments);
        const std::string arguments = row.arguments.join('|').toStdString();
        EXPECT_EQ(read.file.toStdString(), row.file.toStdString()) << arguments;
        EXPECT_EQ(read.algorithmId, row.algorithmId) << arguments;
        EXPECT_EQ(read.start, row.start) << arguments;
    }
}

TEST(CommandLine, ALoneArgumentIsTheFileIfItExists)
{
    const quillon::tests::TempFolder folder;
    const QString file = QString::fromStdString(quillon::tests::utf8Name(folder.write("-a ü.bin", "x")));
    EXPECT_EQ(parseCommandLine({file}).file, file);
    EXPECT_EQ(parseCommandLine({' ' + file + '\n'}).file, file);
    EXPECT_EQ(parseCommandLine({file + 'x'}).file, "");
}

} // namespace
} // namespace thisapp
