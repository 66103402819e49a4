// SPDX-License-Identifier: MIT
#include "model/SampleDocument.h"

#include "model/Document.h"

#include <QCoreApplication>
#include <QtMath>

namespace {
QString text(const char *source)
{
    return QCoreApplication::translate("SampleDocument", source);
}

struct Picture
{
    QList<Shape *> shapes;

    Shape *add(Shape::Kind kind, const char *name, const QRectF &rect, QRgb color)
    {
        auto *shape = new Shape(kind, rect);
        shape->setName(text(name));
        shape->setFillColor(QColor(color));
        shape->setStrokeEnabled(false);
        shapes.append(shape);
        return shape;
    }
};

void addLandscape(Picture &picture)
{
    picture.add(Shape::Rectangle, QT_TRANSLATE_NOOP("SampleDocument", "Sky"), {40, 40, 762, 330}, 0xffcfe3ee)
        ->setLayer(0);
    Shape *sea =
        picture.add(Shape::Rectangle, QT_TRANSLATE_NOOP("SampleDocument", "Sea"), {40, 370, 762, 185}, 0xff2f6690);
    sea->setLayer(0);
    sea->setLocked(true);
    sea->setTags(
        {text(QT_TRANSLATE_NOOP("SampleDocument", "water")), text(QT_TRANSLATE_NOOP("SampleDocument", "background"))});
    Shape *sun = picture.add(Shape::Star, QT_TRANSLATE_NOOP("SampleDocument", "Sun"), {640, 70, 110, 110}, 0xfff2b632);
    sun->setPoints(16);
    sun->setInnerRadius(0.72);
    Shape *cloud =
        picture.add(Shape::Ellipse, QT_TRANSLATE_NOOP("SampleDocument", "Cloud"), {430, 90, 170, 56}, 0xffffffff);
    cloud->setOpacity(0.8);
    cloud->setDue(QDate(2026, 12, 24));
    picture.add(Shape::Ellipse, QT_TRANSLATE_NOOP("SampleDocument", "Small cloud"), {520, 120, 130, 40}, 0xffffffff)
        ->setOpacity(0.65);
}

void addBoat(Picture &picture)
{
    Shape *mast =
        picture.add(Shape::Rectangle, QT_TRANSLATE_NOOP("SampleDocument", "Mast"), {368, 120, 8, 254}, 0xff6b4a2f);
    mast->setCornerRadius(4);
    Shape *sail =
        picture.add(Shape::Polygon, QT_TRANSLATE_NOOP("SampleDocument", "Sail"), {250, 165, 220, 210}, 0xfff7efe1);
    sail->setSides(3);
    sail->setStrokeEnabled(true);
    sail->setLineJoin(Shape::RoundJoin);
    sail->setShadowOffset(5);
    Shape *flag =
        picture.add(Shape::Polygon, QT_TRANSLATE_NOOP("SampleDocument", "Flag"), {363, 124, 46, 34}, 0xffb5483a);
    flag->setSides(3);
    flag->setRotation(90);
    Shape *hull =
        picture.add(Shape::Rectangle, QT_TRANSLATE_NOOP("SampleDocument", "Hull"), {220, 372, 310, 62}, 0xff8a4b2d);
    hull->setCornerRadius(28);
    hull->setStrokeEnabled(true);
    hull->setStrokeWidth(2);
    for (int i = 0; i < 3; ++i)
        picture.add(Shape::Ellipse, QT_TRANSLATE_NOOP("SampleDocument", "Porthole"), {280.0 + 80 * i, 390, 26, 26},
                    0xffcfe3ee);
}

/// A rich text of two paragraphs.
ZelAttributedString remarks()
{
    QFont bold;
    bold.setBold(true);
    ZelAttributedString result(text(QT_TRANSLATE_NOOP("SampleDocument", "For the harbour office")),
                               {{ZelAttributedString::Font, bold}});
    const QString second = text(QT_TRANSLATE_NOOP("SampleDocument", "The title goes to the print shop, too."));
    result.append(QString(u'\n' + second));
    ZelParagraphStyle style;
    style.paragraphSpacing = 2;
    result.setParagraphStyle(style, {0, result.length()});
    return result;
}

void addTexts(Picture &picture)
{
    Shape *title =
        picture.add(Shape::Text, QT_TRANSLATE_NOOP("SampleDocument", "Title"), {60, 462, 360, 60}, 0xffffffff);
    title->setText(text(QT_TRANSLATE_NOOP("SampleDocument", "A fair wind")));
    title->setFontSize(34);
    title->setTextStyle(Shape::Bold | Shape::Italic);
    title->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    title->setLayer(2);
    title->setRemarks(remarks());
    Shape *frame =
        picture.add(Shape::Rectangle, QT_TRANSLATE_NOOP("SampleDocument", "Frame"), {40, 40, 762, 515}, 0xffffffff);
    frame->setFillEnabled(false);
    frame->setStrokeEnabled(true);
    frame->setStrokeWidth(3);
    frame->setLayer(2);
}
} // namespace

void SampleDocument::fill(Document &document)
{
    Picture picture;
    addLandscape(picture);
    addBoat(picture);
    addTexts(picture);
    document.setProperty("title", text(QT_TRANSLATE_NOOP("SampleDocument", "Sailing boat")));
    document.append(picture.shapes);
}

void SampleDocument::fillWithRows(Document &document, int count)
{
    constexpr double Step = 28;
    const int columns = qMax(1, qCeil(qSqrt(count * 4.0 / 3)));
    const int rows = (count + columns - 1) / columns;
    constexpr QRgb Fills[] = {0x2b2f36, 0x6b7785, 0xffffff, 0xb5483a, 0xe0a030, 0x5b8c5a, 0x2f6690, 0x7d4e7e};
    QList<Shape *> shapes;
    shapes.reserve(count);
    for (int i = 0; i < count; ++i) {
        auto *shape =
            new Shape(Shape::Kind(i % 4), {Step / 2 + i % columns * Step, Step / 2 + i / columns * Step, 20, 20});
        shape->setName(text(QT_TRANSLATE_NOOP("SampleDocument", "Shape %1")).arg(i + 1));
        shape->setFillColor(QColor(Fills[size_t(i / 4) % std::size(Fills)]));
        shape->setStrokeWidth(1);
        shapes.append(shape);
    }
    document.setPageSize({Step * (columns + 1), Step * (rows + 1)});
    document.setProperty("title", text(QT_TRANSLATE_NOOP("SampleDocument", "%1 shapes")).arg(count));
    document.append(shapes);
}
