#pragma once

#include "io/IIStream.h"
#include "io/StreamError.h"
#include "platform/InputFile.h"
#include "sync/SafeData.h"

#include <cstdint>
#include <memory>

namespace quillon::io {
namespace internal {

template <class Char>
class IStreamFile;

/// The bytes of a file with a wide name. Each read is one system call straight into the caller's buffer, so
/// the size of that buffer decides the size of the calls. Reads up to the size that the file had at its open:
/// what is added later is not read, and a file that was cut meanwhile delivers reads of 0 bytes. A `close` in
/// mid-read is safe; that read still ends on the open file.
template <>
class IStreamFile<wchar_t> final : public IIStream<char>
{
public:
    IStreamFile() = default;
    IStreamFile(const IStreamFile&) = delete;
    IStreamFile& operator=(const IStreamFile&) = delete;
    ~IStreamFile() override { close(); }

    /// Opens an existing file. {5, 5} for a null or empty name, {5, 7} where the stream is open already,
    /// {1, system error} where the system refuses. A failure is also kept as the last error.
    /// While another program holds the file back, `isStopped` may end the wait for it.
    err::ResultCode open(const wchar_t* fileName, const platform::StopQuery& isStopped = {});

    /// Whether somebody has written to the file since its open; false where the stream is not open.
    [[nodiscard]] bool isFileChanged() const;

    /// Closes the file, if one is open. The stream can then be opened again.
    void close();

    [[nodiscard]] bool isBegin() const override;
    [[nodiscard]] bool isEnd() const override;

    /// Besides what every stream answers: {5, 5} for a null buffer, {5, 104} where the stream is not open,
    /// {1, system error} where the system's read fails. At the end `bytesRead` stays as it was.
    bool read(char* buffer, int count, unsigned* bytesRead) override;

    /// The size in bytes that the file had at its open; 0 where the stream is not open.
    [[nodiscard]] std::int64_t size() const override { return m_options.get().size; }

    [[nodiscard]] err::ResultCode lastError() const override { return m_error.get(); }

private:
    struct SFileOptions
    {
        std::int64_t size = 0;
        std::int64_t position = 0; ///< bytes read so far

        [[nodiscard]] bool isAtEnd() const noexcept { return position >= size; }
    };

    bool readFrom(platform::InputFile& file, char* buffer, int count, unsigned* bytesRead);

    StreamError m_error;
    sync::SafeData<sync::Locker, std::shared_ptr<platform::InputFile>> m_file;
    sync::SafeData<sync::Locker, SFileOptions> m_options;
};

} // namespace internal

using internal::IStreamFile;

} // namespace quillon::io
