#include "ui/IconFileEngine.h"

#include <QApplication>
#include <QImageReader>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <memory>

namespace {

bool covers(const QSize& image, const QSize& size)
{
    return image.width() >= size.width() && image.height() >= size.height();
}

} // namespace

void IconFileEngine::addFile(const QString& fileName, const QSize& /*size*/, QIcon::Mode /*mode*/,
                             QIcon::State /*state*/)
{
    // QIcon names the file when it makes the engine, and then once more.
    if (fileName == m_fileName)
        return;
    m_fileName = fileName;
    m_sizes.clear();
    m_images.clear();
    QImageReader reader(fileName);
    for (int image = 0; image < reader.imageCount() && reader.jumpToImage(image); ++image)
        m_sizes.push_back(reader.size());
}

QSize IconFileEngine::actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/)
{
    if (m_sizes.empty())
        return {};
    const QSize image = m_sizes[imageFor(size)];
    return covers(size, image) ? image : image.scaled(size, Qt::KeepAspectRatio);
}

QList<QSize> IconFileEngine::availableSizes(QIcon::Mode /*mode*/,
                                            QIcon::State /*state*/) KESTRUM_CONST_WITH_QT5
{
    return {m_sizes.begin(), m_sizes.end()};
}

QPixmap IconFileEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    if (m_sizes.empty())
        return {};
    QPixmap shown = decoded(imageFor(size));
    if (const QSize actual = actualSize(size, mode, state); shown.size() != actual)
        shown = shown.scaled(actual, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (mode == QIcon::Normal)
        return shown;
    QStyleOption option;
    option.palette = QGuiApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, shown, &option);
}

void IconFileEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatioF(), mode, state));
}

QIconEngine* IconFileEngine::clone() const
{
    return new IconFileEngine(*this);
}

/// The smallest image that need not be enlarged, or else the largest.
std::size_t IconFileEngine::imageFor(const QSize& size) const
{
    const auto isBetter = [&size](const QSize& left, const QSize& right) {
        if (covers(left, size) != covers(right, size))
            return covers(left, size);
        return covers(left, size) ? left.width() < right.width() : left.width() > right.width();
    };
    const auto best = std::min_element(m_sizes.begin(), m_sizes.end(), isBetter);
    return static_cast<std::size_t>(best - m_sizes.begin());
}

QPixmap IconFileEngine::decoded(std::size_t image)
{
    QPixmap& pixmap = m_images[image];
    if (pixmap.isNull()) {
        QImageReader reader(m_fileName);
        reader.jumpToImage(static_cast<int>(image));
        pixmap = QPixmap::fromImage(reader.read());
    }
    return pixmap;
}

QIconEngine* IconFilePlugin::create(const QString& fileName)
{
    auto engine = std::make_unique<IconFileEngine>();
    if (!fileName.isEmpty())
        engine->addFile(fileName, {}, QIcon::Normal, QIcon::Off);
    return engine.release();
}
