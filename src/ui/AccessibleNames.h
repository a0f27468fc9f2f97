#pragma once

/// Lets screen readers call a combo box after its label. On Unix Qt's own description of one gives its
/// current row for a name. Call it before the first widget is made; more calls do no harm.
void nameComboBoxesByTheirLabels();
