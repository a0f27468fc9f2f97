#include "platform/InputFile.h"

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

err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file)
{
    std::unique_ptr<void, HandleCloser> handle(
        CreateFileW(name.c_str(), FILE_READ_DATA | FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (handle.get() == INVALID_HANDLE_VALUE)
        return err::systemError(GetLastError());
    // Pipes and devices have no size that a digest could be read to.
    if (GetFileType(handle.get()) != FILE_TYPE_DISK)
        return err::systemError(ERROR_NOT_SUPPORTED);
    LARGE_INTEGER size{};
    if (GetFileSizeEx(handle.get(), &size) == 0)
        return err::systemError(GetLastError());
    file.reset(new InputFile(reinterpret_cast<std::intptr_t>(handle.release()), size.QuadPart));
    return {};
}

} // namespace quillon::platform
