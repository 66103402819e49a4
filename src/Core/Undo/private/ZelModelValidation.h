// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyPath.h"

#include <QMetaMethod>
#include <QObject>
#include <QPointer>
#include <QVariant>
#include <vector>

struct ZelWriteTarget;

/// Asks models whether they take what a user is about to write, before any of them is written.
///
/// A class takes part by a public slot or Q_INVOKABLE method `QString validateName(value)` for its key `name`. It
/// answers why it does not take the value, as a text for people, or an empty text if it does. The method's argument is
/// a QVariant or of the property's type. Whether a class has such a method is looked up once.
class ZelModelValidation
{
public:
    explicit ZelModelValidation(ZelKey key = {})
        : m_key(key)
    {
    }
    /// Asks what a write of the value at the path would store into. Behind an object, the path may lead on into a
    /// value, such as a point: then the object is asked about that whole value, changed.
    static ZelModelValidation ofKeyPath(QObject *root, const ZelKeyPath &path, const QVariant &value);
    void askTargets(const std::vector<ZelWriteTarget> &targets, const QVariant &value);
    /// Asks one object about a value for the key.
    void ask(QObject *object, const QVariant &value);
    /// Whether the object's class has a method for the key.
    bool validates(const QObject *object);
    /// Whether the class of any of the target's objects has one.
    static bool validates(const ZelWriteTarget &target);
    /// Whether the class of any object that a write at the path would store into has one.
    static bool mayRefuse(QObject *root, const ZelKeyPath &path);

    bool isRefused() const { return m_refusing > 0; }
    /// What the first object that refuses says.
    const QString &reason() const { return m_reason; }
    qsizetype refusing() const { return m_refusing; }
    qsizetype count() const { return m_count; }
    /// Throws if an object refuses.
    void check() const;

private:
    ZelKey m_key;
    const QMetaObject *m_class = nullptr; // that was looked up last, as the objects are mostly of one class
    QMetaMethod m_method;
    QString m_reason;
    qsizetype m_refusing = 0;
    qsizetype m_count = 0;
};

/// Ends a user's edit that models refuse. The control concerned says why; it is no fault that is to be reported.
class ZelRefusedEditException : public ZelException
{
public:
    explicit ZelRefusedEditException(const ZelModelValidation &validation)
        : ZelException(QStringLiteral("ZelRefusedEditException"), validation.reason())
        , m_validation(validation)
    {
    }
    const ZelModelValidation &validation() const { return m_validation; }

private:
    ZelModelValidation m_validation;
};
