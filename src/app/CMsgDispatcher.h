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
    explicit CMsgDispatcher(QObject* parent);

    /// After this nothing is emitted any more.
    ~CMsgDispatcher() override;

    /// Each emits its signal; any thread.
    void hashCalculationStarted();
    void hashCalculationFinished();
    void hashCalculationProgress();

signals:
    void notifyHashCalculationStarted();
    void notifyHashCalculationFinished();
    void notifyHashCalculationProgress();

private:
    quillon::sync::SafeValue<bool> m_closing{false};
};
