// SPDX-License-Identifier: MIT
#include "apps/client/tools/ToolIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <utility>

/// Resources of a static library are not found unless somebody names them.
static void loadDrawings()
{
    Q_INIT_RESOURCE(tools);
}

namespace client {

namespace {

/// Draws in the palette's colour of button texts: the drawings are written in black.
class Drawing : public QIconEngine
{
public:
    explicit Drawing(QByteArray svg)
        : m_svg(std::move(svg))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor ink = QGuiApplication::palette().color(group, QPalette::ButtonText);
        QSvgRenderer(QByteArray(m_svg).replace("#000", ink.name().toLatin1())).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new Drawing(m_svg); }

private:
    QByteArray m_svg;
};

} // namespace

QIcon toolIcon(const char* name)
{
    loadDrawings();
    QFile file(QStringLiteral(":/tools/%1.svg").arg(QLatin1String(name)));
    return QIcon(new Drawing(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()));
}

} // namespace client
