#pragma once

#include "err/ErrorCodes.h"
#include "file/ITextFileReader.h"
#include "platform/FilePaths.h"

#include <string>

namespace quillon::file::internal {

/// What every reader refuses before it opens a file.
inline err::ResultCode checkOpen(const ITextFileReader<char>& reader, const std::string& path)
{
    if (reader.isOpen())
        return err::programError(err::kReaderAlreadyOpen);
    if (path.empty())
        return err::programError(err::kPathEmpty);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    return {};
}

} // namespace quillon::file::internal
