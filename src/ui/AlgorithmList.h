#pragma once

#include "crypto/HashCatalogue.h"

#include <QVariantMap>

#include <cstdint>
#include <string>

class QListWidget;
class QVariant;

namespace thisapp {

/// Where frames and dialogs read the selectable hash algorithms.
class IHashAlgProvider
{
public:
    virtual ~IHashAlgProvider() = default;

    [[nodiscard]] virtual std::int32_t getAlgorithmCount() const = 0;

    /// Writes the algorithm at `index`, counted from 0, into `id` and returns true. For an index out of range
    /// the answer is false and `id` stays as it is.
    virtual bool getAlgorithm(std::int32_t index, SHashAlgId& id) const = 0;

    /// The algorithm's name for display, UTF-8; empty for an unknown one.
    [[nodiscard]] virtual std::string getAlgorithmName(const SHashAlgId& id) const = 0;

    /// Whether `id` is one of the algorithms offered here.
    [[nodiscard]] virtual bool isAlgorithmKnown(const SHashAlgId& id) const = 0;
};

} // namespace thisapp

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
