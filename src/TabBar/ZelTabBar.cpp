// SPDX-License-Identifier: MIT
#include "TabBar/ZelTabBar.h"

#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "TabBar/ZelButtonMatrix.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/private/ZelAssignItems.h"

#include <QEvent>
#include <QShortcut>
#include <cmath>

namespace {

constexpr int g_buttonWidth = 32;
constexpr int g_barHeight = 22;

/// The key sequence of the item; empty if it has no key equivalent or that is no key.
QKeySequence sequenceOf(const ZelTabBarItem *item)
{
    const QKeySequence key = QKeySequence::fromString(item->keyEquivalent(), QKeySequence::PortableText);
    if (key.count() != 1 || key[0].key() == Qt::Key_unknown)
        return {};
    return QKeySequence(QKeyCombination(key[0].keyboardModifiers() | item->keyEquivalentModifierMask(), key[0].key()));
}

} // namespace

ZelTabBar::ZelTabBar(QWidget *parent)
    : ZelBar(parent)
    , m_matrix(new ZelButtonMatrix(this))
{
    setUp();
}

ZelTabBar::ZelTabBar(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelBar(coder, parent)
    , m_matrix(new ZelButtonMatrix(this))
{
    setUp();
}

void ZelTabBar::setUp()
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_matrix->setCellWidth(g_buttonWidth);
    connect(m_matrix, &ZelButtonMatrix::triggered, this, [this] { selectBarButton(m_matrix); });
}

ZelTabBar::~ZelTabBar()
{
    uninstall();
}

// Properties

QList<ZelTabBarItem *> ZelTabBar::items() const
{
    QList<ZelTabBarItem *> items;
    items.reserve(m_items.size());
    for (const QPointer<ZelTabBarItem> &item : m_items)
        if (item)
            items.append(item);
    return items;
}

void ZelTabBar::setItems(const QList<ZelTabBarItem *> &items)
{
    if (ZelAssignItems(m_items, items, this))
        Q_EMIT itemsChanged();
}

void ZelTabBar::setSelectedItem(ZelTabBarItem *item)
{
    if (ZelAssign(m_selectedItem, item))
        Q_EMIT selectedItemChanged();
}

ZelTabBarDelegate *ZelTabBar::delegate() const
{
    return m_delegate;
}

void ZelTabBar::changeEvent(QEvent *event)
{
    ZelBar::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        Q_EMIT enabledChanged();
}

void ZelTabBar::setDelegate(ZelTabBarDelegate *delegate)
{
    const bool isOther = delegate != this->delegate();
    m_delegate = delegate;
    if (isOther)
        Q_EMIT delegateChanged();
}

// Observation

void ZelTabBar::viewDidInstall()
{
    ZelBar::viewDidInstall();
    const ZelObservations observations(this);
    const auto observe = [&](const char *key, void (ZelTabBar::*update)()) {
        observations.addObservationWithObject(
            this, key, ZelKeyValueObservingOptionEqualCheck,
            [this, update](ZelBlockObservation *, const ZelKeyValueChange &) { (this->*update)(); },
            &ZelInstalledContext);
    };
    observe("items", &ZelTabBar::itemsDidChange);
    observe("selectedItem", &ZelTabBar::updateButtonState);
    observe("style", &ZelTabBar::updateButtonStyle);
    observations.addBindingWithObject(m_matrix, ZelEnabledBinding, this, "enabled", {}, &ZelInstalledContext);
    for (ZelTabBarItem *item : items())
        startObservationOfItem(item);
    updateButtonStyle();
    updateButtonState();
}

void ZelTabBar::viewWillUninstall()
{
    ZelBar::viewWillUninstall();
    for (ZelTabBarItem *item : m_itemObservations.keys())
        stopObservationOfItem(item);
}

void ZelTabBar::startObservationOfItem(ZelTabBarItem *item)
{
    stopObservationOfItem(item);
    ItemObservation &observation = m_itemObservations[item];
    for (const char *key : {"image", "toolTip", "keyEquivalent", "keyEquivalentModifierMask", "enabled"})
        observation.keys.append(ZelBlockObservation::observationWithObject(
            item, key, ZelKeyValueObservingOptionEqualCheck,
            [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateButtons(); }));
    // A number comes and goes with every key that a user presses: only that is drawn anew.
    observation.count = connect(item, &ZelTabBarItem::countChanged, this, [this, item] { updateCount(item); });
    observation.end = connect(item, &QObject::destroyed, this, [this, item] {
        ZelExceptionReporter::run(this, [this, item] { itemWasDestroyed(item); });
    });
}

void ZelTabBar::stopObservationOfItem(ZelTabBarItem *item)
{
    const ItemObservation observation = m_itemObservations.take(item);
    disconnect(observation.count);
    disconnect(observation.end);
    for (const auto &key : observation.keys)
        key->cancel();
}

void ZelTabBar::itemsDidChange()
{
    const QList<ZelTabBarItem *> current = items();
    for (ZelTabBarItem *item : m_itemObservations.keys())
        if (!current.contains(item))
            stopObservationOfItem(item);
    for (ZelTabBarItem *item : current)
        if (!m_itemObservations.contains(item))
            startObservationOfItem(item);
    updateButtons();
}

void ZelTabBar::itemWasDestroyed(ZelTabBarItem *item)
{
    stopObservationOfItem(item);
    m_items.removeAll(nullptr);
    Q_EMIT itemsChanged();
}

// Buttons

void ZelTabBar::updateButtons()
{
    const QList<ZelTabBarItem *> current = items();
    m_matrix->renewColumns(int(current.size()));
    for (int column = 0; column < current.size(); ++column) {
        const ZelTabBarItem *item = current.at(column);
        ZelTabBarButtonCell cell = m_matrix->prototype();
        cell.image = item->image();
        if (style() == 0)
            cell.alternateImage = item->image();
        cell.enabled = item->isEnabled();
        cell.count = item->count();
        cell.toolTip = item->toolTip();
        cell.keyEquivalent = item->keyEquivalent().isNull() ? QStringLiteral("") : item->keyEquivalent();
        cell.keyEquivalentModifierMask = item->keyEquivalentModifierMask();
        m_matrix->setCellAtColumn(column, cell);
    }
    updateShortcuts();
    adjustSubviews();
    updateGeometry();
    const qsizetype selected = m_selectedItem ? current.indexOf(m_selectedItem) : -1;
    m_matrix->selectCellAtColumn(int(qMax<qsizetype>(0, selected)));
    if (selected < 0)
        setSelectedItem(current.isEmpty() ? nullptr : current.first());
}

void ZelTabBar::updateCount(ZelTabBarItem *item)
{
    const int column = int(items().indexOf(item));
    if (column < 0 || column >= m_matrix->numberOfColumns())
        return;
    ZelTabBarButtonCell cell = m_matrix->cellAtColumn(column);
    cell.count = item->count();
    m_matrix->setCellAtColumn(column, cell);
}

void ZelTabBar::updateButtonState()
{
    const qsizetype column = m_selectedItem ? items().indexOf(m_selectedItem) : -1;
    if (column >= 0 && column != m_matrix->selectedColumn())
        m_matrix->selectCellAtColumn(int(column));
}

void ZelTabBar::updateButtonStyle()
{
    m_matrix->prototype().bordered = style() == 0;
    updateButtons();
}

void ZelTabBar::adjustSubviews()
{
    const int width = g_buttonWidth * int(items().size());
    m_matrix->setGeometry(int(std::floor((this->width() - width) * 0.5)), 0, width, height());
}

QSize ZelTabBar::sizeHint() const
{
    return QSize(g_buttonWidth * int(items().size()), g_barHeight);
}

QSize ZelTabBar::minimumSizeHint() const
{
    return sizeHint();
}

void ZelTabBar::layoutSubviews()
{
    ZelBar::layoutSubviews();
    adjustSubviews();
}

// Selection by the user

void ZelTabBar::selectBarButton(QObject *)
{
    const QPointer<ZelTabBar> guard(this);
    const QPointer<ZelTabBarItem> item = items().value(m_matrix->selectedColumn());
    if (!item)
        return;
    if (delegate() && !delegate()->tabBarShouldSelectItem(this, item)) {
        if (guard)
            updateButtonState(); // selects the former button again
        return;
    }
    if (guard && item && delegate())
        delegate()->tabBarWillSelectItem(this, item);
    if (!guard || !item)
        return;
    setSelectedItem(item);
    if (guard && item && delegate())
        delegate()->tabBarDidSelectItem(this, item);
}

void ZelTabBar::updateShortcuts()
{
    QList<QKeySequence> sequences;
    for (const ZelTabBarItem *item : items())
        if (const QKeySequence sequence = sequenceOf(item); !sequence.isEmpty() && !sequences.contains(sequence))
            sequences.append(sequence);
    QList<QKeySequence> current;
    for (const QShortcut *shortcut : std::as_const(m_shortcuts))
        current.append(shortcut->key());
    if (current == sequences)
        return;
    for (QShortcut *shortcut : std::exchange(m_shortcuts, {})) {
        shortcut->setEnabled(false);
        shortcut->deleteLater(); // one of them may have led here
    }
    // There is one shortcut for each sequence and not for each item, because two shortcuts with one sequence are
    // ambiguous and neither is activated.
    for (const QKeySequence &sequence : std::as_const(sequences)) {
        auto *shortcut = new QShortcut(sequence, this);
        const auto select = [this, sequence] {
            ZelExceptionReporter::run(this, [this, &sequence] { selectFirstEnabledItem(sequence); });
        };
        connect(shortcut, &QShortcut::activated, this, select);
        connect(shortcut, &QShortcut::activatedAmbiguously, this, select); // another bar has the same keys
        m_shortcuts.append(shortcut);
    }
}

void ZelTabBar::selectFirstEnabledItem(const QKeySequence &sequence)
{
    const QList<ZelTabBarItem *> current = items();
    for (int column = 0; column < current.size(); ++column) {
        if (current.at(column)->isEnabled() && sequenceOf(current.at(column)) == sequence) {
            m_matrix->performClickAtColumn(column);
            return;
        }
    }
}
