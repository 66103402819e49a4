// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelRowBlock.h"

#include "Controls/private/ZelColorPanelClient.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Errors/private/ZelFirstException.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/RunLoop/ZelPassiveEdits.h"
#include "Inspector/private/ZelRowHeights.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "ViewController/private/ZelTabOrder.h"

#include <QApplication>
#include <QFocusEvent>

#include <algorithm>

ZelRowBlock::ZelRowBlock(const Rows &rows)
    : m_rows(rows)
{
    for (const QPointer<Row> &row : rows)
        row->m_block = this;
    if (std::any_of(rows.begin(), rows.end(), [](const auto &row) { return row->isViewLoaded(); }))
        fill();
    else
        wait(0);
    updateAssumedHeight();
}

ZelRowBlock::~ZelRowBlock()
{
    leaveRows();
    uninstall();
    if (m_sight)
        m_sight->remove(this);
}

void ZelRowBlock::leaveRows()
{
    for (const QPointer<Row> &row : m_rows) {
        if (row && row->m_block == this)
            row->m_block = nullptr;
    }
}

// Waiting and coming

void ZelRowBlock::wait(double height)
{
    m_isWaiting = true;
    forgetHeight();
    m_assumedHeight =
        ZelLayoutConstraint::constraintWithItem(this, ZelLayoutConstraint::Height, ZelLayoutConstraint::Equal, nullptr,
                                                ZelLayoutConstraint::NotAnAttribute, 1, height);
    addConstraint(m_assumedHeight);
    setFocusPolicy(Qt::TabFocus);
}

void ZelRowBlock::fill()
{
    forgetHeight();
    makeRows();
}

void ZelRowBlock::makeRows()
{
    if (std::exchange(m_isWaiting, false))
        setFocusPolicy(Qt::NoFocus);
    stackRows();
}

void ZelRowBlock::forgetHeight()
{
    if (m_assumedHeight)
        removeConstraints({std::exchange(m_assumedHeight, {})});
}

/// Rows that are not shown get no view. Those that have one keep it.
void ZelRowBlock::stackRows()
{
    if (m_isStacking)
        return;
    const QPointer<ZelRowBlock> alive(this);
    m_lacksRows = false;
    QList<QWidget *> views;
    ZelFirstException failure;
    {
        const ZelMemberScope stacking(this, m_isStacking, true);
        const Rows rows = m_rows;
        for (const QPointer<Row> &row : rows) {
            QWidget *view = nullptr;
            if (row && (row->isViewLoaded() || row->isShown()))
                failure.run([&] { view = row->view(); });
            if (view)
                views.append(view);
        }
    }
    if (alive && views != subviews()) {
        const ZelTabOrder tabOrder(this);
        setSubviews(views);
        if (alive && isInstalled())
            tabOrder.followSubviews();
    }
    failure.rethrow();
}

void ZelRowBlock::rowDidLoad()
{
    if (!m_isWaiting)
        stackRows();
    else if (m_sight)
        m_sight->bring(this);
    else
        fill();
}

void ZelRowBlock::rowDidHideOrShow()
{
    if (m_isWaiting)
        return updateAssumedHeight();
    m_lacksRows = std::any_of(m_rows.begin(), m_rows.end(),
                              [](const auto &row) { return row && row->isShown() && !row->isViewLoaded(); });
    if (m_lacksRows && m_sight)
        m_sight->scheduleUpdate();
    else if (m_lacksRows)
        stackRows();
}

void ZelRowBlock::release()
{
    leaveRows();
    forgetConditions();
    m_rows.clear();
    setSubviews({});
}

// Heights

void ZelRowBlock::updateAssumedHeight()
{
    if (!m_assumedHeight)
        return;
    static const ZelRowHeights guesses;
    const ZelRowHeights *heights = m_heights ? m_heights.data() : &guesses;
    double height = 0;
    for (const QPointer<Row> &row : m_rows) {
        if (row && row->isShown())
            height += heights->heightOf(row);
    }
    m_assumedHeight->setConstant(height);
}

bool ZelRowBlock::measure()
{
    bool isNew = false;
    for (const QPointer<Row> &row : m_rows) {
        const bool isLaidOut = row && row->isViewLoaded() && row->isShown() && row->view()->width() == width();
        if (m_heights && isLaidOut)
            isNew = m_heights->learn(row, row->view()->size()) || isNew;
    }
    return isNew;
}

// Going out of sight

/// Whether something is going on in the block, or may go on any moment.
bool ZelRowBlock::isNeeded() const
{
    const QWidget *focus = window()->focusWidget();
    const auto usesPanel = [](const QObject *object) {
        const auto clients = object->findChildren<ZelColorPanelClient *>();
        return std::any_of(clients.begin(), clients.end(), [](const auto *client) { return client->isActive(); });
    };
    return (focus && isAncestorOf(focus)) || QApplication::activePopupWidget() || QApplication::activeModalWidget() ||
           QApplication::mouseButtons() != Qt::NoButton || usesPanel(this) ||
           std::any_of(m_rows.begin(), m_rows.end(), [&](const auto &row) { return row && usesPanel(row); });
}

/// What was typed and refused stays.
bool ZelRowBlock::commitRows()
{
    const ZelPassiveEdits passive;
    const QPointer<ZelRowBlock> alive(this);
    const Rows rows = m_rows;
    return std::all_of(rows.begin(), rows.end(),
                       [&](const auto &row) { return alive && (!row || row->commitEditing()); });
}

bool ZelRowBlock::goOutOfSight()
{
    const QPointer<ZelRowBlock> alive(this);
    if (isNeeded() || !commitRows() || !alive)
        return false;
    const int present = height();
    const bool wasPartial = std::exchange(m_lacksRows, false);
    setSubviews({});
    const Rows rows = alive ? m_rows : Rows();
    for (const QPointer<Row> &row : rows) {
        if (row && row->isViewLoaded() && !row->view()->parentWidget())
            ZelExceptionReporter::run(row, [&row] { row->setView(nullptr); });
    }
    if (!alive)
        return true;
    wait(present);
    if (wasPartial)
        updateAssumedHeight();
    ZelExceptionReporter::run(this, [this] { observeConditions(); });
    return true;
}

// Conditions of rows without views

void ZelRowBlock::observeConditions()
{
    ZelFirstException failure;
    const Rows rows = m_rows;
    for (const QPointer<Row> &row : rows) {
        if (row && !row->isViewLoaded() && !row->visibleKeyPath().isEmpty())
            failure.run([&row] { row->bindAndConfigure(); });
    }
    failure.rethrow();
}

void ZelRowBlock::forgetConditions()
{
    for (const QPointer<Row> &row : m_rows) {
        if (row && !row->isViewLoaded())
            row->unbindAndTearDown();
    }
}

void ZelRowBlock::rowDidChangeCondition(Row *row)
{
    if (isInstalled() && !row->isViewLoaded())
        row->bindAndConfigure();
}

void ZelRowBlock::viewDidInstall()
{
    ZelVerticalStackView::viewDidInstall();
    const QPointer<ZelRowBlock> alive(this);
    m_sight = ZelSight::around(this);
    if (m_sight) {
        m_heights = ZelRowHeights::of(m_sight);
        m_sight->add(this);
    } else if (m_isWaiting) {
        fill();
    }
    if (alive)
        observeConditions();
    if (alive && m_heights && !m_heights->isEmpty())
        updateAssumedHeight();
}

void ZelRowBlock::viewWillUninstall()
{
    ZelVerticalStackView::viewWillUninstall();
    if (m_sight)
        m_sight->remove(this);
    m_sight = nullptr;
    forgetConditions();
}

// Events

/// The Tab key has come to rows that do not exist yet. It goes on to the first or the last control of them.
void ZelRowBlock::focusInEvent(QFocusEvent *event)
{
    ZelVerticalStackView::focusInEvent(event);
    if (!m_isWaiting)
        return;
    const Qt::FocusReason reason = event->reason();
    const bool isBack = reason == Qt::BacktabFocusReason;
    const QPointer<ZelRowBlock> alive(this);
    if (m_sight)
        m_sight->bring(this);
    else
        fill();
    if (!alive)
        return;
    if (QWidget *control = tabStop(isBack))
        control->setFocus(reason);
    else
        focusNextPrevChild(!isBack);
}

QWidget *ZelRowBlock::tabStop(bool last) const
{
    QWidget *found = nullptr;
    const QWidget *const around = window();
    for (QWidget *next = nextInFocusChain(); next && next != this; next = next->nextInFocusChain()) {
        const bool takesTab = (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && next->isEnabled();
        if (takesTab && next != around && isAncestorOf(next) && next->isVisibleTo(this)) {
            found = next;
            if (!last)
                break;
        }
    }
    return found;
}

/// Only what paints more than can be seen, such as a picture of the whole document, comes here while the block waits.
/// What is added now is painted after this. The height stays as it is until all is painted.
void ZelRowBlock::paintEvent(QPaintEvent *event)
{
    if (m_isWaiting) {
        makeRows();
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(this, &request);
        ZelLayoutTurn::instance().add(ZelLayoutTurn::Constraints, this, [](QObject *object) {
            auto *block = static_cast<ZelRowBlock *>(object);
            if (!block->m_isWaiting)
                block->forgetHeight();
        });
    }
    ZelVerticalStackView::paintEvent(event);
}
