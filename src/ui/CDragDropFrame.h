#pragma once

#include "ui/FilesDropTarget.h"

#include <QFrame>

/// A frame onto which files can be dropped, also onto those of its children that refuse them.
class CDragDropFrame final : public FilesDropTarget<QFrame>
{
    Q_OBJECT

public:
    using FilesDropTarget::FilesDropTarget;
};
