// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorCustomProperty.h"
#include "Inspector/ZelDeclarativeInspectorGeneratorDelegate.h"
#include "PreviewNeeds.h"

class ZelLabel;

/// Stands for an editor of the application, whose code is not there: shows the name of its class and the value.
class StandInProperty : public ZelInspectorCustomProperty
{
    Q_OBJECT
public:
    StandInProperty(const QString &name, QObject *owner)
        : ZelInspectorCustomProperty(owner)
        , m_name(name)
    {
    }
    ~StandInProperty() override { uninstall(); }

    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;

private:
    QString m_name;
    ZelLabel *m_label = nullptr;
};

/// What stands for the parts of an application that a description names: classes of editors and slices, types of
/// properties, transformers, which change nothing here, and images.
class PreviewStandIns : public ZelDeclarativeInspectorGeneratorDelegate
{
public:
    /// Registers what is missing. Answers what it was, for people.
    QStringList provide(const PreviewNeeds &needs);

    ZelInspectorProperty *declarativeInspectorGeneratorCreatePropertyForConfiguration(
        ZelDeclarativeInspectorGenerator *generator, const ZelInspectorConfiguration &configuration) override;

private:
    QSet<QString> m_images;
};
