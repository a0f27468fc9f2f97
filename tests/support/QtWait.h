#pragma once

#include "support/Wait.h"

#include <QTest>

namespace quillon::tests {

/// Lets events happen until `condition` holds; false where it does not within the longest time a test waits.
template <class Condition>
[[nodiscard]] bool waitFor(Condition condition)
{
    return QTest::qWaitFor(condition, static_cast<int>(std::chrono::milliseconds(kWaitLimit).count()));
}

} // namespace quillon::tests
