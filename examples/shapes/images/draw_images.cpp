// SPDX-License-Identifier: MIT
// Draws the pictograms of this folder: "ninja shapes_images" after a change of the table.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace {
/// A picture is 16 by 16; its parts are separated by semicolons:
/// L polyline, P filled polygon, O polygon outline, R filled and B outlined rectangle (x y w h), E filled and C
/// outlined ellipse (x y w h), W width of the lines that follow, F their flat caps and J their mitred joins; both are
/// round before that.
struct Picture
{
    const char *name;
    const char *parts;
};
constexpr Picture PictureTable[] = {
    {"Rectangle", "B 2 4 12 8"},
    {"Ellipse", "C 1.5 3.5 13 9"},
    {"Star", "O 8 1.5 9.9 5.8 14.5 6.2 11 9.3 12.1 13.9 8 11.4 3.9 13.9 5 9.3 1.5 6.2 6.1 5.8"},
    {"Polygon", "O 5 2.5 11 2.5 14.3 8 11 13.5 5 13.5 1.7 8"},
    {"Text", "W 1.8; F; L 3 3.4 13 3.4; L 8 3 8 13.5; W 1.2; L 5.8 13.1 10.2 13.1"},

    {"AlignLeft", "F; L 2 1.5 2 14.5; R 4 3.5 9 3.5; R 4 9 5.5 3.5"},
    {"AlignCenter", "F; L 8 1.5 8 14.5; R 3 3.5 10 3.5; R 5 9 6 3.5"},
    {"AlignRight", "F; L 14 1.5 14 14.5; R 3 3.5 9 3.5; R 6.5 9 5.5 3.5"},
    {"AlignTop", "F; L 1.5 2 14.5 2; R 3.5 4 3.5 9; R 9 4 3.5 5.5"},
    {"AlignMiddle", "F; L 1.5 8 14.5 8; R 3.5 3 3.5 10; R 9 5 3.5 6"},
    {"AlignBottom", "F; L 1.5 14 14.5 14; R 3.5 3 3.5 9; R 9 6.5 3.5 5.5"},

    {"Geometry",
     "F; J; L 2.5 1 2.5 13.5 15 13.5; W 1; L 1 4 4 4; L 1 8.5 4 8.5; L 7 12 7 15; L 11.5 12 11.5 15; R 6 4 6.5 6"},
    {"Style", "C 2 2 9 9; E 6 6 8.5 8.5"},
    {"Arrange", "J; B 2 2 8 8; R 6 6 8.5 8.5"},
    {"Notes", "J; B 2.5 2.5 11 11; W 1; L 5 6 11 6; L 5 8.5 11 8.5; L 5 11 8.5 11"},
    {"Document",
     "J; O 3 1.5 9.5 1.5 13 5 13 14.5 3 14.5; L 9.3 1.8 9.3 5.2 12.8 5.2; W 1; L 5.2 8.2 10.8 8.2; L 5.2 11 10.8 11"},

    {"CapFlat", "R 2 4.5 8 7; W 1; F; L 10 1.5 10 14.5"},
    {"CapRound", "R 2 4.5 7 7; E 5.5 4.5 7 7; W 1; F; L 9 1.5 9 14.5"},
    {"CapSquare", "R 2 4.5 11 7; W 1; F; L 9 1.5 9 14.5"},
    {"JoinMiter", "W 5; F; J; L 14.5 5 5 5 5 14.5"},
    {"JoinRound", "W 5; F; L 14.5 5 5 5 5 14.5"},
    {"JoinBevel", "P 14.5 2.5 6 2.5 2.5 6 2.5 14.5 7.5 14.5 7.5 7.5 14.5 7.5"},
    {"DashSolid", "W 2; F; L 1 8 15 8"},
    {"DashDashed", "W 2; F; L 1 8 5 8; L 6 8 10 8; L 11 8 15 8"},
    {"DashDotted", "W 2; F; L 1 8 3 8; L 4 8 6 8; L 7 8 9 8; L 10 8 12 8; L 13 8 15 8"},
    {"DashDotDashed", "W 2; F; L 1 8 6 8; L 7 8 9 8; L 10 8 15 8"},

    {"TextLeft", "F; L 2 3.5 14 3.5; L 2 6.5 10 6.5; L 2 9.5 14 9.5; L 2 12.5 8 12.5"},
    {"TextCenter", "F; L 2 3.5 14 3.5; L 4 6.5 12 6.5; L 2 9.5 14 9.5; L 5 12.5 11 12.5"},
    {"TextRight", "F; L 2 3.5 14 3.5; L 6 6.5 14 6.5; L 2 9.5 14 9.5; L 8 12.5 14 12.5"},
    {"TextTop", "F; L 2 2 14 2; L 4 5 12 5; L 4 8 12 8"},
    {"TextMiddle", "F; L 4 6.5 12 6.5; L 4 9.5 12 9.5; W 1; L 2 2 14 2; L 2 14 14 14"},
    {"TextBottom", "F; L 2 14 14 14; L 4 11 12 11; L 4 8 12 8"},
};

class Pen
{
public:
    explicit Pen(QPainter *painter)
        : m_painter(painter)
    {
    }

    void draw(const QString &part)
    {
        const QStringList words = part.simplified().split(u' ');
        QList<double> numbers;
        for (const QString &word : words.mid(1))
            numbers.append(word.toDouble());
        drawPart(words[0][0].toLatin1(), numbers);
    }

private:
    void drawPart(char kind, const QList<double> &n)
    {
        QPolygonF points;
        for (int i = 0; i + 1 < n.size(); i += 2)
            points << QPointF(n[i], n[i + 1]);
        QPen pen(Qt::black, m_width, Qt::SolidLine, m_cap, m_join);
        m_painter->setPen(pen);
        m_painter->setBrush(Qt::NoBrush);
        if (strchr("PRE", kind)) {
            m_painter->setPen(Qt::NoPen);
            m_painter->setBrush(Qt::black);
        }
        switch (kind) {
        case 'W':
            m_width = n[0];
            break;
        case 'F':
            m_cap = Qt::FlatCap;
            break;
        case 'J':
            m_join = Qt::MiterJoin;
            break;
        case 'L':
            m_painter->drawPolyline(points);
            break;
        case 'P':
        case 'O':
            m_painter->drawPolygon(points);
            break;
        case 'R':
        case 'B':
            m_painter->drawRect(QRectF(n[0], n[1], n[2], n[3]));
            break;
        case 'E':
        case 'C':
            m_painter->drawEllipse(QRectF(n[0], n[1], n[2], n[3]));
            break;
        default:
            qFatal("Unknown part %c", kind);
        }
    }

    QPainter *m_painter;
    double m_width = 1.4;
    Qt::PenCapStyle m_cap = Qt::RoundCap;
    Qt::PenJoinStyle m_join = Qt::RoundJoin;
};

bool drawPicture(const Picture &picture, int scale, const QString &file)
{
    QImage image(16 * scale, 16 * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    Pen pen(&painter);
    for (const QString &part : QString::fromLatin1(picture.parts).split(u';'))
        pen.draw(part);
    return image.save(file);
}
} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const QString folder = application.arguments().value(1, QStringLiteral("."));
    for (const Picture &picture : PictureTable) {
        const QString base = folder + u'/' + QLatin1String(picture.name) + QLatin1String("Template");
        if (!drawPicture(picture, 1, base + QLatin1String(".png")) ||
            !drawPicture(picture, 2, base + QLatin1String("@2x.png")))
            return 1;
    }
    return 0;
}
