#include "io/IStreamFile.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace quillon::io::internal {

err::ResultCode IStreamFile<wchar_t>::open(const wchar_t* fileName, const platform::StopQuery& isStopped)
{
    if (fileName == nullptr || *fileName == L'\0')
        return m_error.keep(err::programError(err::kInvalidArgument));
    if (m_file.get())
        return m_error.keep(err::programError(err::kAlreadyExists));
    m_error.reset();
    std::unique_ptr<platform::InputFile> file;
    const err::ResultCode opened = platform::openInputFile(fileName, file, isStopped);
    if (!err::succeeded(opened))
        return m_error.keep(opened);
    m_options.set({file->size(), 0});
    m_file.set(std::move(file));
    return {};
}

bool IStreamFile<wchar_t>::isFileChanged() const
{
    const std::shared_ptr<platform::InputFile> file = m_file.get();
    return file && file->isChanged();
}

void IStreamFile<wchar_t>::close()
{
    m_file.set(nullptr);
    m_options.set({});
}

bool IStreamFile<wchar_t>::isBegin() const
{
    return m_file.get() && m_options.get().position == 0;
}

bool IStreamFile<wchar_t>::isEnd() const
{
    return !m_file.get() || m_options.get().isAtEnd();
}

bool IStreamFile<wchar_t>::read(char* buffer, int count, unsigned* bytesRead)
{
    if (const std::optional<bool> answer = m_error.beginRead(buffer, count, bytesRead))
        return *answer;
    // A share of the file rather than its lock: a close meanwhile must neither wait nor take the file away.
    const std::shared_ptr<platform::InputFile> file = m_file.get();
    if (!file)
        return m_error.fail(err::programError(err::kStreamNotOpen));
    return readFrom(*file, buffer, count, bytesRead);
}

bool IStreamFile<wchar_t>::readFrom(platform::InputFile& file, char* buffer, int count, unsigned* bytesRead)
{
    const SFileOptions options = m_options.get();
    if (options.isAtEnd())
        return false;
    const auto wanted =
        static_cast<std::uint32_t>(std::min<std::int64_t>(count, options.size - options.position));
    std::uint32_t got = 0;
    if (const err::ResultCode result = file.read(buffer, wanted, got); !err::succeeded(result))
        return m_error.fail(result);
    const std::lock_guard guard(m_options);
    m_options.value.position += got;
    *bytesRead = got;
    return true;
}

} // namespace quillon::io::internal
