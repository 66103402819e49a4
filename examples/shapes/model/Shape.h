// SPDX-License-Identifier: MIT
#pragma once

#include "Text/ZelAttributedString.h"

#include <QColor>
#include <QDate>
#include <QFont>
#include <QObject>
#include <QRectF>
#include <QStringList>
#include <QVariant>

/// One shape of a drawing.
///
/// A plain QObject: what can be edited is a property. Most have a signal of their own; changed() follows every one of
/// them and is the only signal of those that are seldom watched alone. Values out of range are brought into it.
class Shape : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int id READ id CONSTANT)
    Q_PROPERTY(Kind kind READ kind WRITE setKind NOTIFY kindChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QVariant note READ note WRITE setNote NOTIFY changed)
    Q_PROPERTY(QStringList tags READ tags WRITE setTags NOTIFY tagsChanged)
    Q_PROPERTY(QDate due READ due WRITE setDue NOTIFY changed)
    Q_PROPERTY(ZelAttributedString remarks READ remarks WRITE setRemarks NOTIFY remarksChanged)
    Q_PROPERTY(int layer READ layer WRITE setLayer NOTIFY layerChanged)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked NOTIFY lockedChanged)

    Q_PROPERTY(double x READ x WRITE setX NOTIFY xChanged)
    Q_PROPERTY(double y READ y WRITE setY NOTIFY yChanged)
    Q_PROPERTY(double width READ width WRITE setWidth NOTIFY widthChanged)
    Q_PROPERTY(double height READ height WRITE setHeight NOTIFY heightChanged)
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY frameChanged)
    Q_PROPERTY(double rotation READ rotation WRITE setRotation NOTIFY rotationChanged)
    Q_PROPERTY(double area READ area)

    Q_PROPERTY(double opacity READ opacity WRITE setOpacity NOTIFY opacityChanged)
    Q_PROPERTY(bool fillEnabled READ isFillEnabled WRITE setFillEnabled NOTIFY fillEnabledChanged)
    Q_PROPERTY(QColor fillColor READ fillColor WRITE setFillColor NOTIFY changed)
    Q_PROPERTY(QString pattern READ pattern WRITE setPattern NOTIFY changed)
    Q_PROPERTY(bool strokeEnabled READ isStrokeEnabled WRITE setStrokeEnabled NOTIFY strokeEnabledChanged)
    Q_PROPERTY(QColor strokeColor READ strokeColor WRITE setStrokeColor NOTIFY changed)
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY strokeWidthChanged)
    Q_PROPERTY(LineCap lineCap READ lineCap WRITE setLineCap NOTIFY changed)
    Q_PROPERTY(LineJoin lineJoin READ lineJoin WRITE setLineJoin NOTIFY changed)
    Q_PROPERTY(Dash dash READ dash WRITE setDash NOTIFY changed)
    Q_PROPERTY(QVariant shadowOffset READ shadowOffset WRITE setShadowOffset NOTIFY shadowOffsetChanged)

    Q_PROPERTY(QVariant cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY cornerRadiusChanged)
    Q_PROPERTY(int points READ points WRITE setPoints NOTIFY pointsChanged)
    Q_PROPERTY(
        double innerRadius READ innerRadius WRITE setInnerRadius RESET resetInnerRadius NOTIFY innerRadiusChanged)
    Q_PROPERTY(int sides READ sides WRITE setSides NOTIFY sidesChanged)

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged)
    Q_PROPERTY(double fontSize READ fontSize WRITE setFontSize NOTIFY fontSizeChanged)
    Q_PROPERTY(int textStyle READ textStyle WRITE setTextStyle NOTIFY fontChanged)
    Q_PROPERTY(int alignment READ alignment WRITE setAlignment NOTIFY changed)

public:
    // Of a fixed type, since any number may be written to a property by its name.
    enum Kind : int { Rectangle, Ellipse, Star, Polygon, Text };
    Q_ENUM(Kind)
    enum LineCap : int { FlatCap, RoundCap, SquareCap };
    Q_ENUM(LineCap)
    enum LineJoin : int { MiterJoin, RoundJoin, BevelJoin };
    Q_ENUM(LineJoin)
    enum Dash : int { Solid, Dashed, Dotted, DashDotted };
    Q_ENUM(Dash)
    /// The bits of textStyle.
    enum TextStyle { Bold = 1, Italic = 2, Underline = 4, StrikeOut = 8 };

    explicit Shape(Kind kind = Rectangle, const QRectF &rect = QRectF(0, 0, 100, 80), QObject *parent = nullptr);
    /// A shape of the same properties with an id of its own.
    Shape *clone() const;

    /// Small, unique while the program runs and kept when the shape moves in its document.
    int id() const { return m_id; }

    Kind kind() const { return m_kind; }
    void setKind(Kind kind) { change(m_kind, qBound(Rectangle, kind, Text), &Shape::kindChanged); }
    QString name() const { return m_name; }
    void setName(const QString &name) { change(m_name, name, &Shape::nameChanged); }
    /// Why users may not give it that name; empty if they may. The inspector asks before it writes.
    Q_INVOKABLE QString validateName(const QString &name) const;
    /// Invalid is no note.
    QVariant note() const { return m_note; }
    void setNote(const QVariant &note) { change(m_note, note); }
    QStringList tags() const { return m_tags; }
    void setTags(const QStringList &tags) { change(m_tags, tags, &Shape::tagsChanged); }
    /// When it is to be done; invalid is no such day.
    QDate due() const { return m_due; }
    void setDue(const QDate &due) { change(m_due, due); }
    ZelAttributedString remarks() const { return m_remarks; }
    void setRemarks(const ZelAttributedString &remarks) { change(m_remarks, remarks, &Shape::remarksChanged); }
    /// The number of a layer of the document, from 0.
    int layer() const { return m_layer; }
    void setLayer(int layer) { change(m_layer, qBound(0, layer, 30), &Shape::layerChanged); }
    bool isVisible() const { return m_visible; }
    void setVisible(bool visible) { change(m_visible, visible, &Shape::visibleChanged); }
    bool isLocked() const { return m_locked; }
    void setLocked(bool locked) { change(m_locked, locked, &Shape::lockedChanged); }

    double x() const { return m_frame.x(); }
    void setX(double x) { setFrame({{x, y()}, m_frame.size()}); }
    double y() const { return m_frame.y(); }
    void setY(double y) { setFrame({{x(), y}, m_frame.size()}); }
    QPointF position() const { return m_frame.topLeft(); }
    void setPosition(const QPointF &position) { setFrame({position, m_frame.size()}); }
    double width() const { return m_frame.width(); }
    void setWidth(double width) { setFrame({position(), QSizeF(width, height())}); }
    double height() const { return m_frame.height(); }
    void setHeight(double height) { setFrame({position(), QSizeF(width(), height)}); }
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF &frame);
    /// Why users may not give it that frame; empty if they may. Other ways of moving it stop at the same limits.
    Q_INVOKABLE QString validateFrame(const QRectF &frame) const;
    /// Degrees clockwise about the centre, 0 to 360; any others are stored as those that turn it as far.
    double rotation() const { return m_rotation; }
    void setRotation(double degrees);
    /// Of the outline, in square points; computed each time.
    double area() const;

    /// 0 to 1.
    double opacity() const { return m_opacity; }
    void setOpacity(double opacity) { change(m_opacity, qBound(0.0, opacity, 1.0), &Shape::opacityChanged); }
    bool isFillEnabled() const { return m_fillEnabled; }
    void setFillEnabled(bool enabled) { change(m_fillEnabled, enabled, &Shape::fillEnabledChanged); }
    QColor fillColor() const { return m_fillColor; }
    void setFillColor(const QColor &color) { change(m_fillColor, color); }
    /// The name of a pattern in place of the plain colour; null is none.
    QString pattern() const { return m_pattern; }
    void setPattern(const QString &name) { change(m_pattern, name); }
    bool isStrokeEnabled() const { return m_strokeEnabled; }
    void setStrokeEnabled(bool enabled) { change(m_strokeEnabled, enabled, &Shape::strokeEnabledChanged); }
    QColor strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const QColor &color) { change(m_strokeColor, color); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { change(m_strokeWidth, qBound(0.1, width, 200.0), &Shape::strokeWidthChanged); }
    LineCap lineCap() const { return m_lineCap; }
    void setLineCap(LineCap cap) { change(m_lineCap, qBound(FlatCap, cap, SquareCap)); }
    LineJoin lineJoin() const { return m_lineJoin; }
    void setLineJoin(LineJoin join) { change(m_lineJoin, qBound(MiterJoin, join, BevelJoin)); }
    Dash dash() const { return m_dash; }
    void setDash(Dash dash) { change(m_dash, qBound(Solid, dash, DashDotted)); }
    /// Down and to the right, in points; invalid is no shadow.
    QVariant shadowOffset() const { return m_shadowOffset; }
    void setShadowOffset(const QVariant &offset);

    /// Of a rectangle; invalid is square corners.
    QVariant cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(const QVariant &radius);
    /// Of a star, 3 to 60.
    int points() const { return m_points; }
    void setPoints(int points) { change(m_points, qBound(3, points, 60), &Shape::pointsChanged); }
    /// Of a star, as a part of the outer radius.
    double innerRadius() const { return m_innerRadius; }
    void setInnerRadius(double part) { change(m_innerRadius, qBound(0.05, part, 1.0), &Shape::innerRadiusChanged); }
    void resetInnerRadius() { setInnerRadius(standardInnerRadius); }
    /// Of a polygon, 3 to 60.
    int sides() const { return m_sides; }
    void setSides(int sides) { change(m_sides, qBound(3, sides, 60), &Shape::sidesChanged); }

    QString text() const { return m_text; }
    void setText(const QString &text) { change(m_text, text, &Shape::textChanged); }
    QFont font() const { return m_font; }
    void setFont(const QFont &font);
    /// The font's size in points of the page, 1 to 1000.
    double fontSize() const { return m_font.pointSizeF(); }
    void setFontSize(double size);
    /// The font's style in bits of TextStyle.
    int textStyle() const;
    void setTextStyle(int bits);
    /// Bits of Qt::Alignment.
    int alignment() const { return m_alignment; }
    void setAlignment(int bits) { change(m_alignment, bits); }

Q_SIGNALS:
    void changed();
    void kindChanged();
    void nameChanged();
    void tagsChanged();
    void remarksChanged();
    void layerChanged();
    void visibleChanged();
    void lockedChanged();
    void xChanged();
    void yChanged();
    void widthChanged();
    void heightChanged();
    void frameChanged();
    void rotationChanged();
    void opacityChanged();
    void fillEnabledChanged();
    void strokeEnabledChanged();
    void strokeWidthChanged();
    void shadowOffsetChanged();
    void cornerRadiusChanged();
    void pointsChanged();
    void innerRadiusChanged();
    void sidesChanged();
    void textChanged();
    void fontChanged();
    void fontSizeChanged();

private:
    friend class Document;

    template<typename Value> void change(Value &member, const Value &value, void (Shape::*signal)() = nullptr)
    {
        if (member == value)
            return;
        member = value;
        if (signal)
            Q_EMIT(this->*signal)();
        Q_EMIT changed();
    }
    static QRectF onPaper(const QRectF &frame);
    static QFont standardFont();

    const int m_id;
    int m_row = -1; // kept by the document

    Kind m_kind;
    bool m_visible = true;
    bool m_locked = false;
    bool m_fillEnabled = true;
    bool m_strokeEnabled = true;
    LineCap m_lineCap = RoundCap;
    LineJoin m_lineJoin = MiterJoin;
    Dash m_dash = Solid;
    int m_layer = 1;
    int m_points = 5;
    int m_sides = 6;
    int m_alignment = Qt::AlignCenter;
    double m_rotation = 0;
    double m_opacity = 1;
    double m_strokeWidth = 1.5;
    static constexpr double standardInnerRadius = 0.45;
    double m_innerRadius = standardInnerRadius;
    QColor m_fillColor = QColor(0x6d, 0x9e, 0xc8);
    QColor m_strokeColor = QColor(0x2b, 0x2f, 0x36);
    QString m_name;
    QString m_text;
    QString m_pattern;
    QFont m_font = standardFont();
    QStringList m_tags;
    QDate m_due;
    ZelAttributedString m_remarks;
    QRectF m_frame;
    QVariant m_note;
    QVariant m_shadowOffset;
    QVariant m_cornerRadius;
};
