// SPDX-License-Identifier: MIT
#include "Core/Selection/private/ZelModelKeys.h"

#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Selection/private/ZelModelItem.h"

#include <QSet>
#include <algorithm>

namespace {

constexpr char g_lacking = '0';
constexpr char g_readOnly = 'r';
constexpr char g_writable = 'w';

/// Reads and writes one key of the items of a class.
class ItemAccessor : public ZelPropertyAccessor
{
public:
    ItemAccessor(const ZelModelKey &key, int place, bool isWritable)
        : m_key(key)
        , m_place(place)
        , m_isWritable(isWritable)
    {
    }

    QVariant read(const QObject *object) const override
    {
        return static_cast<const ZelModelItem *>(object)->value(m_key);
    }
    bool write(QObject *object, const QVariant &value) const override
    {
        return m_isWritable && static_cast<ZelModelItem *>(object)->setValue(value, m_key, m_place);
    }
    bool isWritable() const override { return m_isWritable; }
    QMetaType type() const override { return m_key.isChecked() ? QMetaType::fromType<bool>() : m_key.type; }
    bool readTyped(const QObject *object, void *value) const override
    {
        const QVariant read = ItemAccessor::read(object);
        if (!read.isValid() || read.metaType() != type())
            return false;
        type().destruct(value);
        type().construct(value, read.constData());
        return true;
    }
    int notifySignalIndex() const override
    {
        static const int index = QMetaMethod::fromSignal(&ZelModelItem::changed).methodIndex();
        return index;
    }
    bool isMeantBy(void **arguments) const override
    {
        const int place = *static_cast<int *>(arguments[1]);
        return place < 0 || place == m_place;
    }

private:
    ZelModelKey m_key;
    int m_place;
    bool m_isWritable;
};

/// A model's roles for what is shown and what is edited mostly answer the same.
bool concerns(const QList<int> &roles, int role)
{
    const bool isText = role == Qt::EditRole || role == Qt::DisplayRole;
    return roles.isEmpty() || roles.contains(role) ||
           (isText && (roles.contains(Qt::EditRole) || roles.contains(Qt::DisplayRole)));
}

} // namespace

QString ZelModelKeys::keyOfHeader(const QString &text)
{
    QString key;
    bool beginsWord = false;
    for (const QChar sign : text) {
        if (!sign.isLetterOrNumber()) {
            beginsWord = true;
        } else if (!key.isEmpty() || sign.isLetter()) {
            key += key.isEmpty() ? sign.toLower() : beginsWord ? sign.toUpper() : sign;
            beginsWord = false;
        }
    }
    return key;
}

const ZelModelKeys *ZelModelKeys::of(const QAbstractItemModel &model, const QList<ZelModelKey> &named)
{
    QList<ZelModelKey> keys = named;
    QSet<ZelKey> known;
    for (const ZelModelKey &key : named)
        known.insert(key.key);
    const auto add = [&](const QString &name, int column, int role) {
        const ZelKey key(name);
        if (!key.isEmpty() && !known.contains(key))
            keys.append({key, column, role});
        known.insert(key);
    };
    const QHash<int, QByteArray> names = model.roleNames();
    QList<int> roles = names.keys();
    std::sort(roles.begin(), roles.end());
    for (const int role : std::as_const(roles))
        add(QString::fromUtf8(names.value(role)), 0, role);
    for (int column = 0; column < model.columnCount(); ++column)
        add(keyOfHeader(model.headerData(column, Qt::Horizontal).toString()), column, Qt::EditRole);

    static auto *all = new std::vector<const ZelModelKeys *>;
    const auto equal = std::find_if(all->begin(), all->end(), [&](const auto *other) { return other->m_keys == keys; });
    if (equal != all->end())
        return *equal;
    all->push_back(new ZelModelKeys(keys));
    return all->back();
}

const ZelModelItemClass *ZelModelKeys::classOf(const QModelIndex &row, bool isLocked) const
{
    QByteArray states(m_keys.size(), g_lacking);
    int column = -1;
    QModelIndex cell;
    Qt::ItemFlags flags;
    for (qsizetype i = 0; i < m_keys.size(); ++i) {
        const ZelModelKey &key = m_keys.at(i);
        if (key.column != column) {
            column = key.column;
            cell = row.siblingAtColumn(column);
            flags = cell.flags();
        }
        const Qt::ItemFlag editable = key.isChecked() ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
        const bool isWritable = !isLocked && flags.testFlag(editable) && flags.testFlag(Qt::ItemIsEnabled);
        if (cell.isValid())
            states[i] = isWritable ? g_writable : g_readOnly;
    }
    if (m_last && m_last->states == states)
        return m_last;
    const ZelModelItemClass *&known = m_classes[states];
    if (!known)
        known = makeClass(states);
    return m_last = known;
}

const ZelModelItemClass *ZelModelKeys::makeClass(const QByteArray &states) const
{
    auto *made = new ZelModelItemClass{this, ZelModelItem::staticMetaObject, states};
    for (qsizetype i = 0; i < m_keys.size(); ++i) {
        const ZelModelKey &key = m_keys.at(i);
        if (states.at(i) != g_lacking) {
            auto accessor = std::make_unique<ItemAccessor>(key, int(i), states.at(i) == g_writable);
            ZelPropertyAccessor::registerAccessor(&made->metaObject, key.key, std::move(accessor));
        }
    }
    return made;
}

QList<int> ZelModelKeys::concerned(int firstColumn, int lastColumn, const QList<int> &roles) const
{
    QList<int> places;
    for (qsizetype i = 0; i < m_keys.size(); ++i) {
        const ZelModelKey &key = m_keys.at(i);
        if (key.column >= firstColumn && key.column <= lastColumn && concerns(roles, key.role))
            places.append(int(i));
    }
    if (places.size() == m_keys.size())
        return {-1};
    return places;
}
