// SPDX-License-Identifier: MIT
#pragma once

#include "Observation/ZelDelayedInvocation.h"
#include "ViewController/ZelView.h"

class QLineEdit;
class ZelLabel;

/// A field for what is searched, and beside it what was found.
class ZelSearchBar : public ZelView
{
public:
    ZelSearchBar();

    QLineEdit *field() const { return m_field; }
    /// Shows the text beside the field at the end of the turn, and tells it to assistive technology.
    void setOutcome(const QString &outcome);

private:
    void showOutcome();

    QLineEdit *m_field;
    ZelLabel *m_label;
    QString m_outcome;
    ZelDelayedInvocation m_showOutcome{[this] { showOutcome(); }};
};
