#include "platform/InputFile.h"

#include "err/ResultCode.h"

#include <windows.h>

#include <utility>

namespace quillon::platform {
namespace {

err::ResultCode lastSystemError()
{
    return {err::kGroupSystem, GetLastError()};
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

using Handle = std::unique_ptr<void, HandleCloser>;

class WindowsInputFile final : public InputFile
{
public:
    WindowsInputFile(Handle handle, std::int64_t size) noexcept
        : m_handle(std::move(handle))
        , m_size(size)
    {
    }

    [[nodiscard]] std::int64_t size() const noexcept override { return m_size; }

    err::ResultCode read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead) override
    {
        DWORD got = 0;
        if (ReadFile(m_handle.get(), buffer, count, &got, nullptr) == 0)
            return lastSystemError();
        bytesRead = got;
        return {};
    }

private:
    Handle m_handle;
    std::int64_t m_size;
};

} // namespace

err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file)
{
    Handle handle(CreateFileW(name.c_str(), FILE_READ_DATA | FILE_READ_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (handle.get() == INVALID_HANDLE_VALUE)
        return lastSystemError();
    // Pipes and devices have no size that a digest could be read to.
    if (GetFileType(handle.get()) != FILE_TYPE_DISK)
        return {err::kGroupSystem, ERROR_NOT_SUPPORTED};
    LARGE_INTEGER size{};
    if (GetFileSizeEx(handle.get(), &size) == 0)
        return lastSystemError();
    file = std::make_unique<WindowsInputFile>(std::move(handle), size.QuadPart);
    return {};
}

} // namespace quillon::platform
