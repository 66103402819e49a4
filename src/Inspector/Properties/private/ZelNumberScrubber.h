// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QFont>
#include <QPoint>
#include <QPointer>
#include <memory>
#include <vector>

class QMouseEvent;
class QWidget;
class ZelInspectorNumberProperty;
class ZelPressGrouping;
class ZelTextField;

/// Lets users change a number by dragging its title: a step for every few pixels, ten with Control, a tenth with Shift.
///
/// Each selected object is changed from the number that it had at the press, at most once in a frame, and the whole
/// drag is one undo step. Escape gives up, and a click without a drag puts the focus into the field. While several
/// different numbers are dragged, a note at the pointer says by how much.
///
/// Whoever goes to the title of a further number of the same editor or row, right after the press, and rests there
/// until it is underlined, changes them together. Passing over a title does nothing.
class ZelNumberScrubber : public ZelGuarded<QObject>
{
    Q_OBJECT
public:
    /// Belongs to the title, and ends with it.
    ZelNumberScrubber(QWidget *title, ZelInspectorNumberProperty *editor);
    ~ZelNumberScrubber() override;

protected:
    bool filterEvent(QObject *watched, QEvent *event) override;
    bool handleEvent(QEvent *event) override;

private:
    /// A number that is being changed, and those that the objects had before.
    struct Number
    {
        QPointer<ZelNumberScrubber> scrubber;
        std::shared_ptr<const std::vector<double>> originals;
    };

    QWidget *title() const;
    ZelTextField *field() const;
    bool canScrub() const;
    bool filterTitle(QEvent *event);
    bool filterEscape(QEvent *event);
    void press(const QMouseEvent *event);
    bool move(const QPoint &position);
    bool begin();
    ZelNumberScrubber *neighbourAt(const QPoint &position) const;
    void watchRest(const QPoint &position);
    void join(ZelNumberScrubber *neighbour);
    void addNumber(ZelNumberScrubber *scrubber);
    void wrap(const QPoint &position);
    void requestChange();
    void change();
    void enter(const std::shared_ptr<const std::vector<double>> &originals, double steps) const;
    void showScrubbed(bool scrubbed);
    void showChange() const;
    void cancel();
    void end();

    QPointer<ZelInspectorNumberProperty> m_editor;
    bool m_isPressed = false;
    QPoint m_pressPosition; // of the screen, as all positions
    QPoint m_lastPosition;
    QElapsedTimer m_sinceJoin;
    QPoint m_restPosition;
    QBasicTimer m_rest;  // while the pointer rests on a title that may join
    double m_pixels = 0; // moved since the last step
    double m_steps = 0;  // since the press
    bool m_isChanged = false;
    QFont m_titleFont; // before the drag
    QBasicTimer m_frame;
    std::vector<Number> m_numbers; // while dragging
    std::unique_ptr<ZelPressGrouping> m_grouping;
};
