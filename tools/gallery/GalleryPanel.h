// SPDX-License-Identifier: MIT
#pragma once

#include "FixedSample.h"
#include "GalleryOwner.h"

#include <Inspector/ZelInspectorSlice.h>

#include <QImage>
#include <QWidget>
#include <memory>

/// A window with one editor in one state, of which a picture is taken.
class GalleryPanel : public QWidget
{
    Q_OBJECT
public:
    enum State { None, One, Equal, Different, Disabled, ReadOnly, Refused };
    static QString titleOf(State state);

    GalleryPanel(const QByteArray &description, State state);
    ~GalleryPanel() override;

    QImage picture();
    /// The menu of the editor's pop-up button while several different objects are selected; null if it has none.
    QImage pictureOfMenu();

private:
    void select();
    void refuse();

    State m_state;
    GalleryOwner m_owner;
    Sample m_one;
    Sample m_equal;
    Sample m_other{true};
    FixedSample m_fixed;
    std::unique_ptr<ZelInspectorSlice> m_slice;
};
