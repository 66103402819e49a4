// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <vector>

class QWidget;
class ZelScrollView;

/// Knows which parts of a scroll view's document are, or are about to be, in sight. A part that costs much waits until
/// then, with a height that it assumes, and may be given up again when it is far away. What is seen stays where it is
/// on the screen while heights above it turn out to be others. For assistive technology everything is in sight.
class ZelSight : public QObject, private QAccessible::ActivationObserver
{
    Q_OBJECT
public:
    /// A widget in the document that waits to be seen.
    class Part
    {
    public:
        virtual QWidget *widget() = 0;
        /// Whether rows are missing, and whether some are there all the same.
        virtual bool isWaiting() const = 0;
        virtual bool isPartial() const = 0;
        /// The part fills itself. It is laid out afterwards.
        virtual void comeIntoSight() = 0;
        /// Answers whether other parts should assume other heights now. Called after comeIntoSight and the layout.
        virtual bool measure() = 0;
        virtual void updateAssumedHeight() = 0;
        /// How many rows the part holds at present.
        virtual int weight() const = 0;
        /// Gives all rows up, and keeps its height unless rows were missing. Answers false if it is needed.
        virtual bool goOutOfSight() = 0;

    protected:
        ~Part() = default;
    };

    /// That of the innermost ZelScrollView in whose document the widget is; null if there is none.
    static ZelSight *around(const QWidget *widget);

    explicit ZelSight(ZelScrollView *view);
    ~ZelSight() override;

    void add(Part *part);
    void remove(Part *part);
    /// Lets come what has to, and gives up what is too much. To be called when the document was scrolled or laid out.
    void update();
    /// The same before the next layout.
    void scheduleUpdate();
    /// Lets a part come even if it is not in sight.
    void bring(Part *part);

Q_SIGNALS:
    void partsDidCome();

private:
    struct Anchor;
    using Parts = std::vector<Part *>;

    void accessibilityActiveChanged(bool active) override;
    bool has(const Part *part) const;
    Parts partsDue(int margin) const;
    void letNextCome();
    void letCome(const Parts &parts);
    void measure(const Parts &parts);
    void giveUpPartialParts();
    void giveUpFarParts();
    Anchor anchor() const;
    void restore(const Anchor &anchor);
    int positionOf(Part *part) const;
    int viewportHeight() const;

    QPointer<ZelScrollView> m_view;
    Parts m_parts;
    QTimer m_ahead;          // lets come what is about to be seen
    bool m_isEverythingSeen; // by assistive technology
    bool m_isUpdating = false;
    bool m_isScheduled = false;
};
