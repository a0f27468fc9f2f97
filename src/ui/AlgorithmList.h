#pragma once

#include "crypto/SHashAlgId.h"
#include "ui/IHashAlgProvider.h"

#include <QVariantMap>

class QListWidget;
class QVariant;

/// Fills `list` with the algorithms of `provider`, in its order. Each row has the name, with the size of the
/// digest behind it (with `showAllSizes` behind every name, otherwise behind those that do not tell it), and
/// the algorithm's id under Qt::UserRole, see makeAlgorithmItemData. The rows that stood in the list are
/// dropped. Without a provider the list ends empty, without a list nothing happens.
void fillAlgorithmList(const thisapp::IHashAlgProvider* provider, QListWidget* list, bool showAllSizes);

/// The form in which an id is kept in the data of a list row: a map with the integers "lib" and "alg".
[[nodiscard]] QVariantMap makeAlgorithmItemData(const thisapp::SHashAlgId& id);

/// The id in the data of a list row. Both fields are 0 where the data is not such a map; a field is 0 where
/// its value is not a possible library or algorithm. Whether the two belong together is not looked at.
[[nodiscard]] thisapp::SHashAlgId parseAlgorithmItemData(const QVariant& data);

/// The first row of `list` with this id, or -1.
[[nodiscard]] int findAlgorithmRow(const QListWidget& list, const thisapp::SHashAlgId& id);
