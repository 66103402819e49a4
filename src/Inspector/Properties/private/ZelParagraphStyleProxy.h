// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Text/ZelAttributedString.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <optional>

class ZelParagraphStyleValues;

/// The paragraph style of a range of an object's attributed string, as separate values.
///
/// It answers the names of the properties of ZelParagraphStyle, "alignment" or "lineSpacing", as keys: with one value
/// if all paragraphs that the range touches have the same, else with the multiple-values marker; with the no-selection
/// marker if there is no text. Paragraphs without a style count as having the default one. A key that is written is set
/// in each of these paragraphs, and the string is stored in the object as a whole; markers are not written.
///
///     new ZelParagraphStyleProxy(document, "selection.note", owner); // an owner's property for key paths to run
///     through
class ZelParagraphStyleProxy : public QObject, public ZelKeyValueCodingInterface
{
    Q_OBJECT
    Q_INTERFACES(ZelKeyValueCodingInterface)
public:
    /// The object is held weakly.
    ZelParagraphStyleProxy(QObject *object, const QString &keyPath, QObject *parent = nullptr);
    ~ZelParagraphStyleProxy() override;

    /// The part of the string that counts; nothing, which is the default, stands for the whole string.
    const std::optional<ZelAttributedString::Range> &range() const { return m_range; }
    void setRange(const std::optional<ZelAttributedString::Range> &range);

    QVariant valueForKeyPath(const ZelKeyPath &path) const override;
    void setValueForKeyPath(const QVariant &value, const ZelKeyPath &path) override;
    void keyPathWillBeObserved(const ZelKeyPath &path) override;
    void keyPathIsNoLongerObserved(const ZelKeyPath &path) override;
    void rereadKeyPath(const ZelKeyPath &path) override;

private:
    ZelParagraphStyleValues values() const;
    ZelAttributedString attributedString() const;
    ZelAttributedString::Range rangeIn(const ZelAttributedString &string) const;
    void announceChanges();

    QPointer<QObject> m_object;
    QString m_keyPath;
    std::optional<ZelAttributedString::Range> m_range;
    QHash<ZelKeyPath, QVariant> m_announced; // what observers know
};
