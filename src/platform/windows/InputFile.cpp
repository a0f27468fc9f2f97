#include "platform/InputFile.h"

#include "platform/windows/LongName.h"

#include <windows.h>

namespace quillon::platform {
namespace {

HANDLE handleOf(std::intptr_t value) noexcept
{
    return reinterpret_cast<HANDLE>(value);
}

struct HandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept
    {
        if (handle != INVALID_HANDLE_VALUE)
            CloseHandle(handle);
    }
};

/// False where there is no size. Not every file system tells the time.
bool readStamp(HANDLE handle, InputFile::Stamp& stamp)
{
    LARGE_INTEGER size{};
    if (GetFileSizeEx(handle, &size) == 0)
        return false;
    FILETIME written{};
    const bool hasTime = GetFileTime(handle, nullptr, nullptr, &written) != 0;
    const auto time = (static_cast<std::uint64_t>(written.dwHighDateTime) << 32U) | written.dwLowDateTime;
    stamp = {size.QuadPart, static_cast<std::int64_t>(time), hasTime};
    return true;
}

} // namespace

InputFile::~InputFile()
{
    CloseHandle(handleOf(m_handle));
}

err::ResultCode InputFile::read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead)
{
    DWORD got = 0;
    if (ReadFile(handleOf(m_handle), buffer, count, &got, nullptr) == 0)
        return err::systemError(GetLastError());
    bytesRead = got;
    return {};
}

bool InputFile::isChanged() const noexcept
{
    Stamp now;
    return m_stamp.isRegular && readStamp(handleOf(m_handle), now) && now != m_stamp;
}

// Nothing is waited for: whoever holds a file back here holds it back for good.
err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file,
                              const StopQuery& /*isStopped*/)
{
    std::unique_ptr<void, HandleCloser> handle(CreateFileW(
        openableName(name).c_str(), FILE_READ_DATA | FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (handle.get() == INVALID_HANDLE_VALUE)
        return err::systemError(GetLastError());
    // Pipes and devices have no size that a digest could be read to.
    if (GetFileType(handle.get()) != FILE_TYPE_DISK)
        return err::systemError(ERROR_NOT_SUPPORTED);
    InputFile::Stamp stamp;
    if (!readStamp(handle.get(), stamp))
        return err::systemError(GetLastError());
    file.reset(new InputFile(reinterpret_cast<std::intptr_t>(handle.release()), stamp));
    return {};
}

} // namespace quillon::platform
