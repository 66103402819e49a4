// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelCheckBoxFlow.h"

#include "Layout/ZelConstraintLayout.h"
#include "ViewController/private/ZelTabOrder.h"

#include <QEvent>
#include <QStyle>
#include <algorithm>

namespace {
constexpr int g_columnGap = 8;
constexpr int g_rowGap = 3;
} // namespace

ZelCheckBoxFlow::ZelCheckBoxFlow(QWidget *parent)
    : ZelGuarded(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ZelCheckBoxFlow::setTitles(const QStringList &titles)
{
    const ZelTabOrder tabOrder(this);
    while (m_boxes.size() > titles.size())
        m_boxes.takeLast()->deleteLater();
    for (ZelCheckBox *former : findChildren<ZelCheckBox *>(QString(), Qt::FindDirectChildrenOnly))
        former->setVisible(m_boxes.contains(former));
    for (qsizetype i = 0; i < titles.size(); ++i) {
        if (i < m_boxes.size()) {
            m_boxes.at(i)->setTitle(titles.at(i));
            continue;
        }
        auto *box = new ZelCheckBox(titles.at(i), this);
        m_boxes.append(box);
        box->show();
        Q_EMIT boxAdded(box);
    }
    tabOrder.followSubviews();
    updateGeometry();
    place();
}

QSize ZelCheckBoxFlow::cell() const
{
    QSize size = m_boxes.isEmpty() ? ZelCheckBox().sizeHint() : QSize();
    for (const ZelCheckBox *box : m_boxes)
        size = size.expandedTo(box->sizeHint());
    return size;
}

int ZelCheckBoxFlow::columns(int width) const
{
    const int most = std::max<int>(1, int(m_boxes.size()));
    return std::clamp((width + g_columnGap) / (cell().width() + g_columnGap), 1, most);
}

int ZelCheckBoxFlow::heightForWidth(int width) const
{
    const int count = std::max(1, rows(columns(width)));
    return count * cell().height() + (count - 1) * g_rowGap;
}

QSize ZelCheckBoxFlow::sizeHint() const
{
    const int width = 2 * cell().width() + g_columnGap;
    return {width, heightForWidth(width)};
}

QSize ZelCheckBoxFlow::minimumSizeHint() const
{
    return {m_boxes.isEmpty() ? 0 : m_boxes.first()->minimumSizeHint().width(), cell().height()};
}

/// The boxes of the first row have the row's label on their line.
double ZelCheckBoxFlow::baselineOffsetForHeight(double) const
{
    const QSize size = cell();
    return m_boxes.isEmpty() ? size.height() : ZelConstraintLayout::baselineOffset(m_boxes.first(), size.height());
}

bool ZelCheckBoxFlow::handleEvent(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::LayoutRequest:
    case QEvent::LayoutDirectionChange:
    case QEvent::FontChange:
    case QEvent::StyleChange:
        place();
        break;
    default:
        break;
    }
    return isHandled;
}

void ZelCheckBoxFlow::place()
{
    const QSize size = cell();
    const int count = columns(width());
    const int columnWidth = (width() - (count - 1) * g_columnGap) / count;
    for (qsizetype i = 0; i < m_boxes.size(); ++i) {
        const QRect place(int(i % count) * (columnWidth + g_columnGap), int(i / count) * (size.height() + g_rowGap),
                          columnWidth, size.height());
        m_boxes.at(i)->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    }
}
