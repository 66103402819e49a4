// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorConditionalContainer.h"
#include "Inspector/ZelInspectorSection.h"
#include "Views/ZelVerticalStackView.h"

/// Sections one below the other, with separators between them.
///
/// The view is made once: later changes of the sections or of the colours do not show in it.
class ZEL_EXPORT ZelInspectorSlice : public ZelInspectorConditionalContainer
{
    Q_OBJECT
    /// Whether every second section has a background; false by default.
    Q_PROPERTY(bool usesAlternatingBackgroundColors READ usesAlternatingBackgroundColors WRITE
                   setUsesAlternatingBackgroundColors NOTIFY usesAlternatingBackgroundColorsChanged)
    Q_PROPERTY(QList<ZelInspectorSection *> sections READ sections WRITE setSections NOTIFY sectionsChanged)
    /// The slice sets it; so may a subclass that makes its view differently.
    Q_PROPERTY(ZelVerticalStackView *sectionsView READ sectionsView MEMBER m_sectionsView NOTIFY sectionsViewChanged)
public:
    explicit ZelInspectorSlice(QObject *owner);

    bool usesAlternatingBackgroundColors() const { return m_usesAlternatingBackgroundColors; }
    void setUsesAlternatingBackgroundColors(bool uses);
    QList<ZelInspectorSection *> sections() const { return m_sections.list(); }
    void setSections(const QList<ZelInspectorSection *> &sections);

    /// The view, with the sections' views and the separators; null while it is not loaded.
    ZelVerticalStackView *sectionsView() const;

    void loadView() override;

Q_SIGNALS:
    void usesAlternatingBackgroundColorsChanged();
    void sectionsChanged();
    void sectionsViewChanged();

protected:
    QList<QPointer<ZelViewController>> childControllers() const override { return m_sections.pointers(); }

private:
    QWidget *makeSeparator(ZelInspectorSection *below);

    ZelChildControllers<ZelInspectorSection> m_sections;
    QPointer<ZelVerticalStackView> m_sectionsView;
    bool m_usesAlternatingBackgroundColors = false;
};
