// SPDX-License-Identifier: MIT
#include "Gallery.h"

#include <QApplication>
#include <QDir>
#include <QHash>
#include <QPainter>
#include <algorithm>
#include <numeric>

namespace {

constexpr int g_titleWidth = 120;
constexpr int g_margin = 6;

QPalette darkPalette()
{
    QPalette palette(QColor(0x2b, 0x2b, 0x2e));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xb4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x55, 0x55, 0x5a));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        palette.setColor(QPalette::Disabled, role, QColor(0x85, 0x85, 0x8a));
    return palette;
}

int distance(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

/// The picture with a table of its most frequent colours, which makes small files.
QImage withFewColors(const QImage &image)
{
    constexpr qsizetype most = 256;
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QList<QRgb> colors = counts.keys();
    std::ranges::sort(colors, [&](QRgb a, QRgb b) { return std::pair(-counts[a], a) < std::pair(-counts[b], b); });
    const QList<QRgb> table = colors.first(std::min(colors.size(), most));
    QHash<QRgb, uint> indexes;
    for (const QRgb color : std::as_const(colors)) {
        const auto nearest = std::ranges::min_element(table, {}, [&](QRgb known) { return distance(known, color); });
        indexes.insert(color, uint(nearest - table.begin()));
    }
    QImage result(image.size(), QImage::Format_Indexed8);
    result.setColorTable(table);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            result.setPixel(x, y, indexes.value(image.pixel(x, y)));
    }
    return result;
}

} // namespace

Gallery::Gallery(const QString &folder)
    : m_folder(folder)
    , m_light(QApplication::palette())
    , m_dark(darkPalette())
{
}

/// What can be refused is typed, and what has no key path knows no selection.
QList<GalleryPanel::State> Gallery::statesOf(const QString &name, const QByteArray &description)
{
    using Panel = GalleryPanel;
    static const QStringList refusing{QStringLiteral("number"), QStringLiteral("string"),   QStringLiteral("size"),
                                      QStringLiteral("frame"),  QStringLiteral("resource"), QStringLiteral("vector")};
    if (!description.contains(" keyPath="))
        return {Panel::One, Panel::Disabled};
    QList<Panel::State> states{Panel::None,      Panel::One,      Panel::Equal,
                               Panel::Different, Panel::Disabled, Panel::ReadOnly};
    if (refusing.contains(name))
        states.append(Panel::Refused);
    return states;
}

template<typename Take> Gallery::Row Gallery::rowOf(const QString &title, Take take) const
{
    Row row{title, {}, {}};
    for (QImage *picture : {&row.light, &row.dark}) {
        QApplication::setPalette(picture == &row.light ? m_light : m_dark);
        *picture = take();
    }
    QApplication::setPalette(m_light);
    return row;
}

bool Gallery::draw(const QString &name, const QByteArray &description) const
{
    QList<Row> rows;
    for (const GalleryPanel::State state : statesOf(name, description))
        rows.append(rowOf(GalleryPanel::titleOf(state), [&] { return GalleryPanel(description, state).picture(); }));
    const Row menu = rowOf(QStringLiteral("Menu"),
                           [&] { return GalleryPanel(description, GalleryPanel::Different).pictureOfMenu(); });
    if (!menu.light.isNull())
        rows.append(menu);
    return save(pictureOf(rows), name);
}

QImage Gallery::pictureOf(const QList<Row> &rows) const
{
    const auto height = [](const Row &row) { return std::max(row.light.height(), row.dark.height()) + g_margin; };
    const int width = rows.first().light.width() + 2 * g_margin;
    const int total = std::transform_reduce(rows.begin(), rows.end(), 0, std::plus(), height);
    QImage image(g_titleWidth + 2 * width, total + g_margin, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    painter.fillRect(image.rect(), m_light.color(QPalette::Window));
    painter.fillRect(g_titleWidth + width, 0, width, image.height(), m_dark.color(QPalette::Window));
    painter.setPen(m_light.color(QPalette::WindowText));
    int y = g_margin;
    for (const Row &row : rows) {
        painter.drawText(QRect(g_margin, y, g_titleWidth - 2 * g_margin, height(row) - g_margin),
                         Qt::AlignLeft | Qt::AlignVCenter, row.title);
        painter.drawImage(g_titleWidth + g_margin, y, row.light);
        painter.drawImage(g_titleWidth + width + g_margin, y, row.dark);
        y += height(row);
    }
    return image;
}

bool Gallery::drawMirrored(const QList<QByteArray> &descriptions) const
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    QByteArray rows;
    for (const QByteArray &description : descriptions) {
        const qsizetype start = description.indexOf("<section>") + qsizetype(sizeof "<section>") - 1;
        rows += description.mid(start, description.indexOf("</section>") - start);
    }
    const QByteArray all = "<slice><section>" + rows + "</section></slice>";
    const bool isSaved = save(GalleryPanel(all, GalleryPanel::One).picture(), QStringLiteral("right-to-left"));
    QApplication::setLayoutDirection(Qt::LeftToRight);
    return isSaved;
}

bool Gallery::save(const QImage &image, const QString &name) const
{
    constexpr int smallest = 0;
    return withFewColors(image).save(QDir(m_folder).filePath(name + QStringLiteral(".png")), "PNG", smallest);
}
