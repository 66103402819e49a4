// SPDX-License-Identifier: MIT
#include "TabBar/ZelButtonMatrixAccessible.h"

#include <QPointer>

namespace {

/// One button of the matrix.
class TabAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    TabAccessible(ZelButtonMatrix *matrix, int column)
        : m_matrix(matrix)
        , m_column(column)
    {
    }

    int column() const { return m_column; }

    bool isValid() const override { return m_matrix && m_column < m_matrix->numberOfColumns(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_matrix ? m_matrix->window()->windowHandle() : nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_matrix); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::PageTab; }

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name ? m_matrix->cellAtColumn(m_column).toolTip : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect local = m_matrix->rectOfColumn(m_column);
        return QRect(m_matrix->mapToGlobal(local.topLeft()), local.size());
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.selectable = true;
        state.focusable = true;
        state.disabled = !m_matrix->isEnabled() || !m_matrix->cellAtColumn(m_column).enabled;
        state.invisible = !m_matrix->isVisible();
        state.selected = m_matrix->selectedColumn() == m_column;
        state.focused = state.selected && m_matrix->hasFocus();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override
    {
        if (isValid() && name == pressAction())
            m_matrix->performClickAtColumn(m_column);
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QPointer<ZelButtonMatrix> m_matrix;
    int m_column;
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *matrix = qobject_cast<ZelButtonMatrix *>(object);
    return matrix ? new ZelButtonMatrixAccessible(matrix) : nullptr;
}

} // namespace

void ZelButtonMatrixAccessible::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed);
}

void ZelButtonMatrixAccessible::selectionDidChange(ZelButtonMatrix *matrix)
{
    if (!QAccessible::isActive() || matrix->selectedColumn() < 0)
        return;
    QAccessibleEvent selection(matrix, matrix->hasFocus() ? QAccessible::Focus : QAccessible::Selection);
    selection.setChild(matrix->selectedColumn());
    QAccessible::updateAccessibility(&selection);
}

ZelButtonMatrixAccessible::ZelButtonMatrixAccessible(ZelButtonMatrix *matrix)
    : QAccessibleWidget(matrix, QAccessible::PageTabList)
{
}

ZelButtonMatrixAccessible::~ZelButtonMatrixAccessible()
{
    for (QAccessible::Id id : std::as_const(m_tabs))
        QAccessible::deleteAccessibleInterface(id);
}

int ZelButtonMatrixAccessible::childCount() const
{
    return matrix()->numberOfColumns();
}

QAccessibleInterface *ZelButtonMatrixAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (const auto known = m_tabs.constFind(index); known != m_tabs.cend())
        return QAccessible::accessibleInterface(*known);
    auto *tab = new TabAccessible(matrix(), index);
    m_tabs.insert(index, QAccessible::registerAccessibleInterface(tab));
    return tab;
}

int ZelButtonMatrixAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *tab = dynamic_cast<const TabAccessible *>(child);
    return tab ? tab->column() : -1;
}

QAccessibleInterface *ZelButtonMatrixAccessible::childAt(int x, int y) const
{
    return child(matrix()->columnAtPosition(matrix()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface *ZelButtonMatrixAccessible::focusChild() const
{
    return matrix()->hasFocus() ? child(matrix()->selectedColumn()) : nullptr;
}
