#include "ui/Resources.h"

#include <QtGlobal>

void initialiseResources()
{
    Q_INIT_RESOURCE(kestrum);
}
