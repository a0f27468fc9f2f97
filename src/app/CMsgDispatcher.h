#pragma once

#include "sync/SafeData.h"

#include <QObject>

/// Turns what the hash worker reports into signals, which reach the window's thread queued. The signals carry
/// no data: whoever receives one reads the session's record as it then stands, so signals may pile up
/// unharmed.
class CMsgDispatcher final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// After this nothing is emitted any more.
    ~CMsgDispatcher() override { m_closing.set(true); }

    /// Each emits its signal; any thread.
    void hashCalculationStarted() { tell(&CMsgDispatcher::notifyHashCalculationStarted); }
    void hashCalculationFinished() { tell(&CMsgDispatcher::notifyHashCalculationFinished); }
    void hashCalculationProgress() { tell(&CMsgDispatcher::notifyHashCalculationProgress); }

signals:
    void notifyHashCalculationStarted();
    void notifyHashCalculationFinished();
    void notifyHashCalculationProgress();

private:
    void tell(void (CMsgDispatcher::*signal)())
    {
        if (!m_closing.get())
            emit(this->*signal)();
    }

    quillon::sync::SafeValue<bool> m_closing{false};
};
