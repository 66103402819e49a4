// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelValueRange.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QWidget>

class QStyleOptionSlider;
class ZelPressGrouping;

/// A horizontal slider or a dial over a range of doubles.
///
/// It reports continuously while it is dragged; all from press to release is one undo grouping, which also ends when
/// the slider is hidden, disabled or destroyed half way. Escape gives up a drag: every object gets its own old value
/// back, and there is nothing to undo. A dial is one full turn clockwise with the minimum at the top.
/// Without a single value it has no handle and begins at the minimum. A value outside the limits shows at the nearer
/// one and stays as it is; in an empty range nothing can be chosen.
class ZelSlider : public ZelGuarded<QWidget>
{
    Q_OBJECT
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(double minValue READ minValue WRITE setMinValue NOTIFY limitsChanged)
    Q_PROPERTY(double maxValue READ maxValue WRITE setMaxValue NOTIFY limitsChanged)
    Q_PROPERTY(double increment READ increment WRITE setIncrement)
    Q_PROPERTY(Type sliderType READ sliderType WRITE setSliderType)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
public:
    enum Type { Linear, Circular };
    Q_ENUM(Type)

    explicit ZelSlider(QWidget *parent = nullptr);
    explicit ZelSlider(Type type, QWidget *parent = nullptr);
    ~ZelSlider() override;

    QVariant objectValue() const { return m_value; }
    void setObjectValue(const QVariant &value);
    double doubleValue() const { return ZelValueRange::number(m_value, m_range.valueAt(0)); }

    /// 0 and 1 unless set. Setting them leaves the value as it is.
    double minValue() const { return m_range.minimum; }
    void setMinValue(double value);
    double maxValue() const { return m_range.maximum; }
    void setMaxValue(double value);
    /// The step from the minimum on which dragging stops; that of keys and wheel as well. 0 means anywhere for the
    /// mouse, and a hundredth of the range for keys and wheel.
    double increment() const { return m_increment; }
    void setIncrement(double increment) { m_increment = increment; }

    Type sliderType() const { return m_type; }
    void setSliderType(Type type);

    /// Whether users may slide; true. Otherwise it looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);
    /// Whether there is a value to stand at, rather than several or none.
    bool hasSingleValue() const;
    bool isDragging() const { return m_dragging; }

    /// Goes to a value within the limits as a user does, and reports it. Nothing where the value is there already.
    void slideTo(double value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void objectValueChanged();
    void limitsChanged();
    void editableChanged();
    /// The user has changed the value.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void initStyleOption(QStyleOptionSlider *option) const;
    QRect handleRect() const;
    QRegion dialHandle() const;
    double fractionAt(const QPoint &position) const;
    void slideBy(double steps);
    void beginDrag();
    void dragTo(const QPoint &position);
    void endDrag();
    void cancelDrag();

    ZelValueRange m_range;
    double m_increment = 0;
    QVariant m_value;
    QVariant m_valueBeforeDrag;
    std::unique_ptr<ZelPressGrouping> m_dragGrouping;
    Type m_type = Linear;
    int m_grabOffset = 0;
    int m_wheelAngle = 0;
    bool m_dragging = false;
    bool m_editable = true;
    mutable QSize m_sizeHint;
};
