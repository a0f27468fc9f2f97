#include "ui/AlgorithmList.h"

#include "crypto/HashCatalogue.h"

#include <QListWidget>
#include <QString>
#include <QVariant>

#include <limits>
#include <memory>

namespace {

constexpr QLatin1String kLibraryKey("lib", 3);
constexpr QLatin1String kAlgorithmKey("alg", 3);

QString rowText(const thisapp::IHashAlgProvider& provider, const thisapp::SHashAlgId& id, bool showAllSizes)
{
    QString text = QString::fromStdString(provider.getAlgorithmName(id));
    const int digestBytes = quillon::crypto::getAlgorithmDigestSize(id.alg);
    // The spelling of the second unit is meant.
    if (showAllSizes)
        text += QStringLiteral(" (%1-byte)").arg(digestBytes);
    else if (!quillon::crypto::namesDigestSize(id.alg))
        text += QStringLiteral(" (%1-bite)").arg(digestBytes);
    return text;
}

void appendRow(QListWidget& list, const QString& text, const thisapp::SHashAlgId& id)
{
    auto item = std::make_unique<QListWidgetItem>();
    item->setText(text);
    item->setData(Qt::UserRole, makeAlgorithmItemData(id));
    list.insertItem(list.count(), item.release());
}

/// The value as an id; 0, which is no id, where it is not a number or does not fit.
std::uint32_t toId(const QVariant& value)
{
    const qlonglong number = value.toLongLong();
    return number >= 0 && number <= std::numeric_limits<std::uint32_t>::max()
               ? static_cast<std::uint32_t>(number)
               : 0;
}

} // namespace

void fillAlgorithmList(const thisapp::IHashAlgProvider* provider, QListWidget* list, bool showAllSizes)
{
    if (list == nullptr)
        return;
    list->clear();
    if (provider == nullptr)
        return;
    for (std::int32_t index = 0; index < provider->getAlgorithmCount(); ++index) {
        thisapp::SHashAlgId id;
        if (provider->getAlgorithm(index, id))
            appendRow(*list, rowText(*provider, id, showAllSizes), id);
    }
}

QVariantMap makeAlgorithmItemData(const thisapp::SHashAlgId& id)
{
    return {{kLibraryKey, static_cast<int>(id.lib)}, {kAlgorithmKey, static_cast<int>(id.alg)}};
}

thisapp::SHashAlgId parseAlgorithmItemData(const QVariant& data)
{
    const QVariantMap map = data.toMap();
    const QVariant lib = map.value(kLibraryKey);
    const QVariant alg = map.value(kAlgorithmKey);
    if (lib.isNull() || alg.isNull())
        return {};
    thisapp::SHashAlgId id{toId(lib), toId(alg)};
    if (!quillon::crypto::isHashLibraryValid(id.lib))
        id.lib = 0;
    id.alg = quillon::crypto::checkHashAlg(id.alg);
    return id;
}

int findAlgorithmRow(const QListWidget& list, const thisapp::SHashAlgId& id)
{
    for (int row = 0; row < list.count(); ++row) {
        if (parseAlgorithmItemData(list.item(row)->data(Qt::UserRole)) == id)
            return row;
    }
    return -1;
}
