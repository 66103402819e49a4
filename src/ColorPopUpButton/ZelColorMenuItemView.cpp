// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMenuItemView.h"

#include "ColorPopUpButton/ZelColorMatrix.h"
#include "ColorPopUpButton/private/ZelMenuTracking.h"
#include "Controls/ZelLabel.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"

#include <QStyle>

namespace {

const char g_colorsContext = 0;
constexpr int g_width = 273;
constexpr int g_indent = 19;

} // namespace

ZelColorMenuItemView::ZelColorMenuItemView(QWidget *parent)
    : ZelView(parent)
    , m_label(new ZelLabel(ZelLocalizedString(QStringLiteral("Recently Used Colors")), this))
    , m_matrix(new ZelColorMatrix(this))
{
    setUp();
}

ZelColorMenuItemView::ZelColorMenuItemView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
    , m_label(new ZelLabel(ZelLocalizedString(QStringLiteral("Recently Used Colors")), this))
    , m_matrix(new ZelColorMatrix(this))
{
    setUp();
}

void ZelColorMenuItemView::setUp()
{
    m_matrix->setAccessibleName(m_label->text());
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_matrix);
    connect(m_matrix, &ZelColorMatrix::cellChosen, this, &ZelColorMenuItemView::selectColor);
    // A menu would keep the drop targets from the pointer.
    connect(m_matrix, &ZelColorMatrix::dragDidBegin, this, [this] { ZelMenuTracking::cancel(this); });
    resize(sizeHint());
    placeSubviews();
}

ZelColorMenuItemView::~ZelColorMenuItemView()
{
    uninstall();
}

void ZelColorMenuItemView::setSelectedColor(const QVariant &color)
{
    if (ZelEqual(color, m_selectedColor))
        return;
    m_selectedColor = color;
    Q_EMIT selectedColorChanged();
}

void ZelColorMenuItemView::setControlSize(quint32 size)
{
    if (!ZelAssign(m_controlSize, size))
        return;
    m_label->setFont(ZelControlSize::font(size));
    resize(sizeHint());
    updateGeometry();
    placeSubviews();
    Q_EMIT controlSizeChanged();
}

QSize ZelColorMenuItemView::sizeHint() const
{
    return {g_width, 44 + m_label->sizeHint().height() + 1};
}

void ZelColorMenuItemView::placeSubviews()
{
    const QSize swatches = m_matrix->sizeHint();
    const int labelHeight = m_label->sizeHint().height();
    const QRect label(g_indent, 2, width() - 14 - 2, labelHeight);
    const QRect matrix(g_indent, height() - 1 - swatches.height(), swatches.width(), swatches.height());
    m_label->setGeometry(QStyle::visualRect(layoutDirection(), rect(), label));
    m_matrix->setGeometry(QStyle::visualRect(layoutDirection(), rect(), matrix));
}

void ZelColorMenuItemView::resizeEvent(QResizeEvent *event)
{
    ZelView::resizeEvent(event);
    placeSubviews();
}

void ZelColorMenuItemView::changeEvent(QEvent *event)
{
    ZelView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) {
        updateGeometry();
        placeSubviews();
    }
}

void ZelColorMenuItemView::viewDidInstall()
{
    ZelView::viewDidInstall();
    ZelObservations(this).addObservationWithObject(
        ZelUsedColorList::sharedUsedColorList(), "colors", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateColorButtons(); }, &g_colorsContext);
    updateColorButtons();
}

void ZelColorMenuItemView::viewWillUninstall()
{
    ZelView::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_colorsContext);
}

void ZelColorMenuItemView::updateColorButtons()
{
    m_matrix->setColors(ZelUsedColorList::sharedUsedColorList()->colors());
}

void ZelColorMenuItemView::selectColor(int index)
{
    const QPointer<ZelColorMenuItemView> guard(this);
    setSelectedColor(
        ZelUsedColorList::sharedUsedColorList()->colors().value(index, ZelColor(QColor(Qt::white))).toVariant());
    if (!guard)
        return;
    // The menu is closed first, because the action may delete the owner of the menu.
    ZelMenuTracking::cancel(this);
    Q_EMIT action(this);
}
