// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

class ZelExpandableHeader;

/// A box with a title above a body that can be folded away.
///
/// A click on the title folds and unfolds the body. While the title has the focus, Space and Return do so, too; the
/// arrow key towards the triangle folds, the opposite one unfolds. With the Alt key they ask for the same of all boxes
/// that belong together, which is up to whoever made these.
class ZEL_EXPORT ZelExpandableView : public ZelView
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// True by default.
    Q_PROPERTY(bool expanded READ isExpanded WRITE setExpanded NOTIFY expandedChanged)
    /// The look of the title: 0, the default, is plain; 1 is a shaded strip.
    Q_PROPERTY(quint32 style READ style WRITE setStyle NOTIFY styleChanged)
public:
    explicit ZelExpandableView(QWidget *parent = nullptr);
    explicit ZelExpandableView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);

    QString title() const;
    void setTitle(const QString &title);
    bool isExpanded() const { return m_expanded; }
    void setExpanded(bool expanded);
    quint32 style() const;
    void setStyle(quint32 style);
    /// The view below the title; null by default. A view that is replaced is taken out and has no parent then.
    QWidget *bodyView() const { return m_bodyView; }
    void setBodyView(QWidget *view);
    ZelExpandableHeader *header() const { return m_header; }

    void updateConstraints() override;
    void willRemoveSubview(QWidget *subview) override;
    bool drawsContent() const override;

Q_SIGNALS:
    void titleChanged();
    void expandedChanged();
    /// The user wants this box, and all that belong to it, to be unfolded or folded. This one is so already.
    void expandedForAll(bool expanded);
    void styleChanged();

protected:
    ZelView *newInstance() const override { return new ZelExpandableView; }

private:
    void setUp();

    ZelExpandableHeader *m_header;
    QPointer<QWidget> m_bodyView;
    QList<ZelLayoutConstraint::Ptr> m_viewConstraints;
    bool m_expanded = true;
};
