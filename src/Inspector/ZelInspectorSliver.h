// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelInspectorConditionalContainer.h"
#include "Layout/ZelLayoutConstraint.h"
#include "Views/ZelHorizontalStackView.h"

#include <memory>

/// One row of an inspector: property editors, with the title as a label before them.
///
/// Before the label stands a dot while a selected object has another value than its default; without a label, the dot
/// stands before the editors. A context menu copies, pastes and resets the row's values.
///
/// The editors stand one below the other. Two neighbours of one kind that are narrow enough share a line. With
/// fullWidth there is no label, and its place belongs to the editors. A change of the title, of fullWidth or of the
/// properties shows at once.
class ZEL_EXPORT ZelInspectorSliver : public ZelInspectorConditionalContainer
{
    Q_OBJECT
    /// False by default.
    Q_PROPERTY(bool fullWidth READ isFullWidth WRITE setFullWidth NOTIFY fullWidthChanged)
    Q_PROPERTY(QList<ZelInspectorProperty *> properties READ properties WRITE setProperties NOTIFY propertiesChanged)
    // What the row is made of. The sliver sets these; so may a subclass that makes the row differently.
    Q_PROPERTY(ZelLabel *label READ label WRITE setLabel NOTIFY labelChanged)
    Q_PROPERTY(ZelLayoutConstraint::Ptr baselineConstraint READ baselineConstraint WRITE setBaselineConstraint NOTIFY
                   baselineConstraintChanged)
public:
    explicit ZelInspectorSliver(QObject *owner);
    ~ZelInspectorSliver() override;

    bool isFullWidth() const { return m_fullWidth; }
    void setFullWidth(bool fullWidth);
    QList<ZelInspectorProperty *> properties() const { return m_properties.list(); }
    void setProperties(const QList<ZelInspectorProperty *> &properties);

    /// Null while the row shows no label.
    ZelLabel *label() const;
    /// The constraint between the baselines of the label and of the first editor; null if one of them is missing.
    const ZelLayoutConstraint::Ptr &baselineConstraint() const;

    void loadView() override;
    void viewDidUnload() override;
    /// Makes the row anew from the properties.
    void updateView();

Q_SIGNALS:
    void fullWidthChanged();
    void propertiesChanged();
    void labelChanged();
    void baselineConstraintChanged();

protected:
    void titleDidChange() override;
    QList<QPointer<ZelViewController>> childControllers() const override { return m_properties.pointers(); }

private:
    struct Parts;
    Parts &parts();
    void setLabel(ZelLabel *label);
    void setBaselineConstraint(const ZelLayoutConstraint::Ptr &constraint);
    QList<QWidget *> makeLines();
    ZelView *makePair(ZelInspectorProperty *first, ZelInspectorProperty *second);
    bool needsLabel() const { return !title().isEmpty() && !m_fullWidth; }
    void updateLabel();
    void letLabelScrub();
    void showTitle();
    void watchDefaults();
    void showChanged();
    void describeChanged(QWidget *control, bool isChanged) const;
    ZelLabel *makeLabel();
    QList<ZelLayoutConstraint::Ptr> constraintsForLines(const QList<QWidget *> &lines);
    QList<ZelLayoutConstraint::Ptr> constraintsForLabel();

    ZelChildControllers<ZelInspectorProperty> m_properties;
    std::unique_ptr<Parts> m_parts; // null until there is something in the view
    bool m_fullWidth = false;
    bool m_isChanged = false; // a value differs from its default
};
