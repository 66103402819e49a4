// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

class ZelSearchIndex;
class ZelSearchMarks;

/// Where the focus was before it went to the find field, and where it goes from there.
class ZelSearchFocus
{
public:
    void note(QWidget *widget);
    bool isEmpty() const { return m_former.empty(); }
    void restore() const;

    /// The first control behind the field, in the order of the Tab key, that stands in a row whose view is shown; in
    /// that row, the one whose title is marked. Null if there is none.
    static QWidget *firstFound(QWidget *field, const ZelSearchIndex &index, const ZelSearchMarks &marks);

private:
    std::vector<QPointer<QWidget>> m_former; // what had the focus, and the controls around that
};
