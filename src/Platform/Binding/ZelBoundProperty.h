// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Binding/ZelBinding.h"
#include "Platform/Runtime/ZelAbstractValueTransformer.h"
#include "Platform/Runtime/ZelKeyValueObserving.h"

#include <memory>

class ZelPropertyAccessor;

/// One property of an object that follows a key path of another, and hands back what the user enters.
class ZelBoundProperty final : public ZelKeyValueObserver
{
public:
    ZelBoundProperty(QObject *object, ZelKey name, const ZelBindingInfo &info);
    ~ZelBoundProperty();

    ZelKey name() const { return m_name; }
    const ZelBindingInfo &info() const { return m_info; }
    /// The value as it is, and a warning, where the transformer cannot be reversed.
    static QVariant reverseTransformed(const QVariant &value, const ZelValueTransformerPtr &transformer,
                                       const QString &binding);

    /// Takes the value over and begins to follow it.
    void start();

    void observeValueForKeyPath(const ZelKeyPath &keyPath, QObject *object, const ZelKeyValueChange &change,
                                const void *context) override;

private:
    class EditReceiver;
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
    std::unique_ptr<EditReceiver> m_edits;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true); // false once deleted: a write may end the binding
    bool m_isCommitting = false;
    bool m_isObserving = false;
};
