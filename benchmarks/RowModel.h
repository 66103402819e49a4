// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <utility>

/// What the rows of the measured inspectors show and edit: one property for each kind of editor.
class RowModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(double number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(bool flag READ flag WRITE setFlag NOTIFY flagChanged)
    Q_PROPERTY(int choice READ choice WRITE setChoice NOTIFY choiceChanged)
public:
    using QObject::QObject;

    QString text() const { return m_text; }
    double number() const { return m_number; }
    bool flag() const { return m_flag; }
    int choice() const { return m_choice; }

    void setText(const QString &text)
    {
        if (std::exchange(m_text, text) != text)
            Q_EMIT textChanged();
    }
    void setNumber(double number)
    {
        if (std::exchange(m_number, number) != number)
            Q_EMIT numberChanged();
    }
    void setFlag(bool flag)
    {
        if (std::exchange(m_flag, flag) != flag)
            Q_EMIT flagChanged();
    }
    void setChoice(int choice)
    {
        if (std::exchange(m_choice, choice) != choice)
            Q_EMIT choiceChanged();
    }

Q_SIGNALS:
    void textChanged();
    void numberChanged();
    void flagChanged();
    void choiceChanged();

private:
    QString m_text = QStringLiteral("text");
    double m_number = 1.5;
    bool m_flag = true;
    int m_choice = 2;
};
