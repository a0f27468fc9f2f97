#pragma once

#include "ui/FilesDropTarget.h"

#include <QLineEdit>

/// An edit field for a file name onto which files can be dropped.
class CLineEditForFile final : public FilesDropTarget<QLineEdit>
{
    Q_OBJECT

public:
    using FilesDropTarget::FilesDropTarget;
};
