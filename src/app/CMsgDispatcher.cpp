#include "app/CMsgDispatcher.h"

CMsgDispatcher::CMsgDispatcher(QObject* parent)
    : QObject(parent)
{
}

CMsgDispatcher::~CMsgDispatcher()
{
    m_closing.set(true);
}

void CMsgDispatcher::hashCalculationStarted()
{
    if (!m_closing.get())
        emit notifyHashCalculationStarted();
}

void CMsgDispatcher::hashCalculationFinished()
{
    if (!m_closing.get())
        emit notifyHashCalculationFinished();
}

void CMsgDispatcher::hashCalculationProgress()
{
    if (!m_closing.get())
        emit notifyHashCalculationProgress();
}
