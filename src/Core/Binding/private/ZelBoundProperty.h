// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Binding/ZelBinding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/private/ZelSignalReceiver.h"
#include "Core/Values/ZelAbstractValueTransformer.h"

class ZelPropertyAccessor;

/// One property of an object that follows a key path of another, and hands back what the user enters. Both setters call
/// others, who may end the binding and so delete this.
class ZelBoundProperty final : public ZelSignalReceiver, public ZelKeyValueObserver
{
public:
    ZelBoundProperty(QObject *object, ZelKey name, const ZelBindingInfo &info);
    ~ZelBoundProperty() override;

    ZelKey name() const { return m_name; }
    const ZelBindingInfo &info() const { return m_info; }
    /// Answers the value reverse transformed; if the transformer cannot be reversed, warns and answers it as it is.
    static QVariant reverseTransformed(const QVariant &value, const ZelValueTransformerPtr &transformer,
                                       const QString &binding);

    /// Takes the value over and begins to follow it.
    void start();

    void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                const void *context) override;

private:
    /// The control reports an edit.
    void heard(int number, void **arguments) override;
    void update();
    void commit();
    void setEditable(const QVariant &modelValue);
    bool hasNothingToCommit() const;
    QVariant bounded(const QVariant &value) const;
    QVariant shown(const QVariant &modelValue) const;

    QPointer<QObject> m_object;
    ZelKey m_name;
    ZelBindingInfo m_info;
    ZelValueTransformerPtr m_transformer;
    const ZelPropertyAccessor *m_accessor = nullptr;
    bool m_isReported = false; // the edit comes from a control of the library, which takes care of exceptions
    bool m_isCommitting = false;
    bool m_isObserving = false;
};
