// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Layout/ZelConstraintLayout.h"
#include "ViewController/ZelView.h"

#include <QHash>
#include <QMarginsF>
#include <QSharedPointer>

class ZelBlockObservation;

/// The constraint of each subview that squeezes it out of the line when it is hidden.
using ZelCompressionConstraints = QHash<QWidget *, ZelLayoutConstraint::Ptr>;

/// Arranges its subviews in a line, in their order. A hidden subview and its spacing take no room.
///
/// The constraints are rebuilt in the next layout after a subview has come or gone, or a property of the stack has
/// changed; hiding a subview only changes one constant. All subviews fill the stack across the line. The stack may be
/// longer than its subviews; they stay at its beginning.
class ZEL_EXPORT ZelStackView : public ZelView, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
    /// Points between the stack's edges and its subviews; none by default.
    Q_PROPERTY(QMarginsF edgeInsets READ edgeInsets WRITE setEdgeInsets NOTIFY edgeInsetsChanged)
    /// Points between neighbours; 0 by default.
    Q_PROPERTY(double spacing READ spacing WRITE setSpacing NOTIFY spacingChanged)
    /// Whether all subviews have the same length along the line; false by default.
    Q_PROPERTY(bool equalSizes READ equalSizes WRITE setEqualSizes NOTIFY equalSizesChanged)
    // The constraints of the line, and those that squeeze hidden subviews out. What is set here is replaced by the next
    // update.
    Q_PROPERTY(QList<ZelLayoutConstraint::Ptr> stackConstraints READ stackConstraints WRITE setStackConstraints NOTIFY
                   stackConstraintsChanged)
    Q_PROPERTY(ZelCompressionConstraints compressionConstraints READ compressionConstraints WRITE
                   setCompressionConstraints NOTIFY compressionConstraintsChanged)
public:
    ~ZelStackView() override;

    Qt::Orientation orientation() const { return m_orientation; }
    const QMarginsF &edgeInsets() const { return m_edgeInsets; }
    void setEdgeInsets(const QMarginsF &insets);
    double spacing() const { return m_spacing; }
    void setSpacing(double spacing);
    bool equalSizes() const { return m_equalSizes; }
    void setEqualSizes(bool equal);
    /// Whether a row begins at the right in a right-to-left layout; false by default.
    bool isMirrored() const { return m_isMirrored; }
    void setMirrored(bool mirrored);

    const QList<ZelLayoutConstraint::Ptr> &stackConstraints() const { return m_stackConstraints; }
    void setStackConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    const ZelCompressionConstraints &compressionConstraints() const { return m_compressionConstraints; }
    void setCompressionConstraints(const ZelCompressionConstraints &constraints);

    /// Makes a subview's constraint follow whether the subview is hidden. The stack does this by itself while it is
    /// installed.
    void startObservationsForView(QWidget *subview);
    void stopObservationsForView(QWidget *subview);

    /// The baseline of the first subview; 0 without subviews.
    double baselineOffsetFromBottom() const override;
    double baselineOffsetForHeight(double height) const override;

    void viewDidInstall() override;
    void viewWillUninstall() override;
    void didAddSubview(QWidget *subview) override;
    void willRemoveSubview(QWidget *subview) override;
    void updateConstraints() override;
    bool drawsContent() const override;

Q_SIGNALS:
    void edgeInsetsChanged();
    void spacingChanged();
    void equalSizesChanged();
    void stackConstraintsChanged();
    void compressionConstraintsChanged();

protected:
    ZelStackView(Qt::Orientation orientation, QWidget *parent);
    ZelStackView(Qt::Orientation orientation, const ZelKeyedCoder &coder, QWidget *parent);

private:
    struct Axis; // the attributes along and across the line
    const Axis &axis() const;
    double trailingInset() const;
    void addConstraintsOfSubview(QWidget *view, QWidget *previous);
    void addTrailingConstraints(QWidget *last);
    void subviewDidHideOrShow(QWidget *subview);

    Qt::Orientation m_orientation;
    QMarginsF m_edgeInsets;
    double m_spacing = 0;
    bool m_equalSizes = false;
    bool m_isMirrored = false;
    QList<ZelLayoutConstraint::Ptr> m_stackConstraints;
    ZelCompressionConstraints m_compressionConstraints;
    // Kept here and not with the subviews, which may die first.
    QHash<QWidget *, QSharedPointer<ZelBlockObservation>> m_hiddenObservations;
};
