// SPDX-License-Identifier: MIT
#include "Layout/private/ZelTextBaseline.h"

#include "Layout/ZelConstraintLayout.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QStyleOptionGroupBox>
#include <QStyleOptionSpinBox>
#include <QTextDocument>
#include <QTextEdit>

namespace {

/// The baseline of one line of text in the middle of a rectangle.
double centered(const QWidget *widget, const QRectF &rect)
{
    const QFontMetricsF metrics(widget->font());
    return rect.top() + (rect.height() - metrics.height()) / 2 + metrics.ascent();
}

template<typename Option> Option optionFor(const QWidget *widget, double height)
{
    Option option;
    option.initFrom(widget);
    option.rect = QRect(0, 0, widget->width(), qRound(height));
    return option;
}

double lineEditBaseline(const QWidget *widget, double height)
{
    const auto *edit = static_cast<const QLineEdit *>(widget);
    auto option = optionFor<QStyleOptionFrame>(widget, height);
    option.lineWidth = edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit) : 0;
    const QRect contents = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    return centered(edit, contents.marginsRemoved(edit->textMargins()));
}

double comboBoxBaseline(const QWidget *widget, double height)
{
    const auto *box = static_cast<const QComboBox *>(widget);
    auto option = optionFor<QStyleOptionComboBox>(widget, height);
    option.subControls = QStyle::SC_All;
    option.editable = box->isEditable();
    option.frame = box->hasFrame();
    return centered(box, box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box));
}

double spinBoxBaseline(const QWidget *widget, double height)
{
    const auto *box = static_cast<const QAbstractSpinBox *>(widget);
    auto option = optionFor<QStyleOptionSpinBox>(widget, height);
    option.subControls = QStyle::SC_All;
    option.frame = box->hasFrame();
    option.buttonSymbols = box->buttonSymbols();
    return centered(box, box->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, box));
}

double groupBoxBaseline(const QWidget *widget, double height)
{
    const auto *box = static_cast<const QGroupBox *>(widget);
    auto option = optionFor<QStyleOptionGroupBox>(widget, height);
    option.subControls = QStyle::SC_All;
    option.text = box->title();
    return centered(box, box->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, box));
}

double labelBaseline(const QWidget *widget, double height)
{
    const auto *label = static_cast<const QLabel *>(widget);
    const QFontMetricsF metrics(label->font());
    const QRectF rect = QRectF(0, 0, label->width(), height)
                            .marginsRemoved(label->contentsMargins())
                            .adjusted(label->margin(), label->margin(), -label->margin(), -label->margin());
    const int flags = int(label->alignment() & Qt::AlignHorizontal_Mask) | (label->wordWrap() ? Qt::TextWordWrap : 0);
    const bool isOneLine = !label->wordWrap() && !label->text().contains(QLatin1Char('\n'));
    const double textHeight = isOneLine ? metrics.height() : metrics.boundingRect(rect, flags, label->text()).height();
    double top = rect.top();
    if (label->alignment() & Qt::AlignBottom)
        top = rect.bottom() - textHeight;
    else if (!(label->alignment() & Qt::AlignTop))
        top += (rect.height() - textHeight) / 2;
    return top + metrics.ascent();
}

double textEditBaseline(const QWidget *widget, double)
{
    const auto *edit = static_cast<const QTextEdit *>(widget);
    return edit->frameWidth() + edit->document()->documentMargin() + QFontMetricsF(edit->font()).ascent();
}

double plainTextEditBaseline(const QWidget *widget, double)
{
    const auto *edit = static_cast<const QPlainTextEdit *>(widget);
    return edit->frameWidth() + edit->document()->documentMargin() + QFontMetricsF(edit->font()).ascent();
}

double buttonBaseline(const QWidget *widget, double height)
{
    return centered(widget, QRectF(0, 0, widget->width(), height));
}

struct Control
{
    const QMetaObject *type;
    double (*baseline)(const QWidget *, double height);
};

const Control g_controls[] = {
    {&QLabel::staticMetaObject, labelBaseline},
    {&QLineEdit::staticMetaObject, lineEditBaseline},
    {&QAbstractButton::staticMetaObject, buttonBaseline},
    {&QComboBox::staticMetaObject, comboBoxBaseline},
    {&QAbstractSpinBox::staticMetaObject, spinBoxBaseline},
    {&QTextEdit::staticMetaObject, textEditBaseline},
    {&QPlainTextEdit::staticMetaObject, plainTextEditBaseline},
    {&QGroupBox::staticMetaObject, groupBoxBaseline},
};

} // namespace

double ZelTextBaseline(const QWidget *widget, double height)
{
    if (const auto *provider = qobject_cast<ZelBaselineProvider *>(const_cast<QWidget *>(widget)))
        return provider->baselineOffsetForHeight(height);
    for (const Control &control : g_controls) {
        if (control.type->cast(widget))
            return control.baseline(widget, height);
    }
    for (QObject *object : widget->children()) {
        const auto *child = qobject_cast<QWidget *>(object);
        if (!child || child->isWindow() || child->isHidden())
            continue;
        const QRect place = ZelConstraintLayout::geometryWithin(child, QSize(widget->width(), qRound(height)));
        return place.top() + ZelTextBaseline(child, place.height());
    }
    return height;
}
