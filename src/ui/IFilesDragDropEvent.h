#pragma once

#include <QList>
#include <QUrl>

#include <cstdint>

/// Receives what the user drops onto a drop target.
class IFilesDragDropEvent
{
public:
    virtual ~IFilesDragDropEvent() = default;

    /// `id` is that of the drop target, so that one handler can serve several. `urls` may be empty and need
    /// not be local files. Called on the main thread.
    virtual void onFilesDropped(std::int32_t id, const QList<QUrl>& urls) = 0;
};
