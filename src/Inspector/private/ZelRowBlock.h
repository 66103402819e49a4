// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspectorConditionalContainer.h"
#include "Views/ZelVerticalStackView.h"
#include "Views/private/ZelSight.h"

class ZelRowHeights;

/// Some neighbouring rows of a section with very many. Their views are made when the block comes into sight, or when
/// somebody asks for one of them. Until then it stands in for them with the height that they will probably have, and as
/// one stop of the Tab key.
///
/// Conditions of rows without a view are observed by the block, since they decide about its height.
class ZelRowBlock : public ZelVerticalStackView, private ZelSight::Part
{
public:
    using Row = ZelInspectorConditionalContainer;
    using Rows = QList<QPointer<Row>>;

    explicit ZelRowBlock(const Rows &rows);
    ~ZelRowBlock() override;

    const Rows &rows() const { return m_rows; }
    /// A row's view was loaded, or a row without a view was hidden or shown, or got another condition.
    void rowDidLoad();
    void rowDidHideOrShow();
    void rowDidChangeCondition(Row *row);
    /// Makes the views.
    void fill();
    /// Takes the views out, which belong to their controllers.
    void release();

    void viewDidInstall() override;
    void viewWillUninstall() override;
    bool drawsContent() const override { return false; }

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *widget() override { return this; }
    bool isWaiting() const override { return m_isWaiting || m_lacksRows; }
    bool isPartial() const override { return m_lacksRows; }
    void comeIntoSight() override { fill(); }
    bool measure() override;
    void updateAssumedHeight() override;
    int weight() const override { return m_isWaiting ? 0 : int(m_rows.size()); }
    bool goOutOfSight() override;

    void leaveRows();
    void wait(double height);
    void forgetHeight();
    void makeRows();
    void stackRows();
    bool isNeeded() const;
    bool commitRows();
    void observeConditions();
    void forgetConditions();
    QWidget *tabStop(bool last) const;

    Rows m_rows;
    QPointer<ZelSight> m_sight;
    QPointer<ZelRowHeights> m_heights;
    ZelLayoutConstraint::Ptr m_assumedHeight;
    bool m_isWaiting = false;
    bool m_lacksRows = false; // rows that were not shown when the others got their views
    bool m_isStacking = false;
};
