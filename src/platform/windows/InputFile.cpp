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

InputFile::Stamp stampOf(const BY_HANDLE_FILE_INFORMATION& status)
{
    const auto join = [](DWORD high, DWORD low) {
        return static_cast<std::int64_t>((static_cast<std::uint64_t>(high) << 32U) | low);
    };
    return {join(status.nFileSizeHigh, status.nFileSizeLow),
            join(status.ftLastWriteTime.dwHighDateTime, status.ftLastWriteTime.dwLowDateTime), true};
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
    BY_HANDLE_FILE_INFORMATION status{};
    return m_stamp.isRegular && GetFileInformationByHandle(handleOf(m_handle), &status) != 0 &&
           stampOf(status) != m_stamp;
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
    BY_HANDLE_FILE_INFORMATION status{};
    if (GetFileInformationByHandle(handle.get(), &status) == 0)
        return err::systemError(GetLastError());
    file.reset(new InputFile(reinterpret_cast<std::intptr_t>(handle.release()), stampOf(status)));
    return {};
}

} // namespace quillon::platform
