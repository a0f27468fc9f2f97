#pragma once

#include "platform/qt/QtVersion.h"

#include <QIconEngine>
#include <QIconEnginePlugin>
#include <QPixmap>

#include <map>
#include <vector>

/// Shows an icon file that holds an image for each of several sizes. Qt's own engine decodes all of them as
/// soon as a form names the file, which was a tenth of the program's start; this one decodes the image that
/// fits, when it is shown. All sizes are in pixels of the device. As with Qt's engine, no image is shown
/// larger than it is. Belongs to the main thread.
class IconFileEngine : public QIconEngine
{
public:
    /// The later file counts; `size`, `mode` and `state`, for which it is meant, do not matter.
    void addFile(const QString& fileName, const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) KESTRUM_CONST_WITH_QT5 override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QIconEngine* clone() const override;

private:
    [[nodiscard]] std::size_t imageFor(const QSize& size) const;
    [[nodiscard]] QPixmap decoded(std::size_t image);

    QString m_fileName;
    std::vector<QSize> m_sizes; // of the images, in the order of the file
    std::map<std::size_t, QPixmap> m_images;
};

/// Lets every QIcon of a name that ends with ".ico" have that engine.
class IconFilePlugin : public QIconEnginePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QIconEngineFactoryInterface_iid FILE "IconFileEngine.json")

public:
    QIconEngine* create(const QString& fileName) override;
};
