// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QVariant>
#include <memory>

struct ZelModelItemClass;
struct ZelModelKey;

/// A row of an item model as an object with keys: reading a key asks the model's data(), writing one calls setData().
class ZelModelItem : public QObject
{
    Q_OBJECT
public:
    static std::unique_ptr<ZelModelItem> make(const QModelIndex &row, const ZelModelItemClass *itemClass,
                                              bool isLocked);

    /// The first column of its row; invalid once the row is gone.
    const QPersistentModelIndex &index() const { return m_index; }
    const ZelModelItemClass *itemClass() const { return m_class; }
    /// Its keys mean nothing any more.
    void end() { m_index = QModelIndex(); }
    /// Whether the view that made it does not let its row be edited, while the model would.
    bool isLocked() const { return m_isLocked; }

    QVariant value(const ZelModelKey &key) const;
    /// Answers false if the value does not fit the one that the model has. A model that takes none counts as one that
    /// keeps its own: whoever writes reads it again.
    bool setValue(const QVariant &value, const ZelModelKey &key, int place);
    /// Says that the value of the key at the place (-1: of every key) may have changed.
    void announce(int place);

    void retain() { ++m_uses; }
    void release() { --m_uses; }
    /// Whether somebody retains it, or it was written: undo brings former values back by means of the object.
    bool isNeeded() const { return m_uses > 0 || m_isWritten; }

Q_SIGNALS:
    void changed(int place);

protected:
    ZelModelItem(const QModelIndex &row, const ZelModelItemClass *itemClass, bool isLocked);

    const ZelModelItemClass *m_class;

private:
    QModelIndex cell(const ZelModelKey &key) const;

    QPersistentModelIndex m_index;
    int m_uses = 0;
    quint32 m_announcements = 0;
    bool m_isLocked;
    bool m_isWritten = false;
};
