#pragma once

#include "settings/AppSettings.h"

/// The settings store of this program.
class CAppSettings : public quillon::AppSettings
{
    Q_OBJECT

public:
    CAppSettings();
};
