#include "settings/CAppSettings.h"

#include "vars/Product.h"

CAppSettings::CAppSettings()
    : AppSettings(static_cast<int>(quillon::vars::kProductId))
{
}
