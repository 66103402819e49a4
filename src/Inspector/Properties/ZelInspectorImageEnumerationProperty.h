// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelResizableSegmentedControlView.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"
#include "Platform/Controls/ZelLabel.h"

#include <QLabel>

/// Chooses one of a row of images with a segmented control, or shows the chosen image.
class ZelInspectorImageEnumerationProperty : public ZelInspectorEnumerationProperty
{
    Q_OBJECT
    /// The number of the chosen segment, a marker, or nothing.
    Q_PROPERTY(QVariant selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedIndexChanged)
public:
    explicit ZelInspectorImageEnumerationProperty(QObject *owner);
    ~ZelInspectorImageEnumerationProperty() override;

    ZelSegmentedControl *segmentedControl() const { return m_segmentedControl; }
    ZelResizableSegmentedControlView *resizableSegmentedControlView() const { return m_resizableSegmentedControlView; }
    QLabel *imageView() const { return m_imageView; }
    const QVariant &selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(const QVariant &index);

    /// The value of a segment; absent beyond the last one.
    QVariant valueForSegment(qsizetype index) const;
    /// The first segment that stands for the value; none is the assertion "Unsupported value found: ", and -1.
    qsizetype segmentForValue(const QVariant &value) const;

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void rebuildView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

Q_SIGNALS:
    void selectedIndexChanged();

private:
    void showImage();

    QPointer<ZelSegmentedControl> m_segmentedControl;
    QPointer<ZelResizableSegmentedControlView> m_resizableSegmentedControlView;
    QPointer<QLabel> m_imageView;
    QPointer<ZelLabel> m_label;
    QList<Choice> m_choices;
    QVariant m_selectedIndex;
};
