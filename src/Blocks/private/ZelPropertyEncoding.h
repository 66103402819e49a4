// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>

/// A type that a block property can have, as it is written in the property's attributes.
///
///     @  any value            q  64-bit integer       {CGPoint=dd}                            QPointF
///     c  bool                 f  float                {CGSize=dd}                             QSizeF
///     s  short                d  double               {CGRect={CGPoint=dd}{CGSize=dd}}        QRectF
///     i  int, I  unsigned
class ZelPropertyEncoding
{
public:
    /// Null for a type that no block property can have. "@" may be followed by a class name in quotation marks.
    static const ZelPropertyEncoding *find(const QString &text);
    /// Null for a type that is passed as any value.
    static const ZelPropertyEncoding *find(QMetaType type);

    QString text() const { return QString::fromLatin1(m_text); }
    /// Invalid for any value.
    QMetaType type() const { return m_type; }

    /// The value in this type. Numbers are converted into one another as in C, except that a fraction or a
    /// floating-point number out of range gives the nearest integer towards zero; an absent value, the null object, and
    /// what cannot be converted give 0, false or an empty geometry. The type of any value gives the value itself.
    QVariant converted(const QVariant &value) const { return m_convert(value); }
    /// Whether the value can be converted into this type and is within its range.
    bool canConvert(const QVariant &value) const;

private:
    using Convert = QVariant (*)(const QVariant &);

    ZelPropertyEncoding(const char *text, QMetaType type, Convert convert)
        : m_text(text)
        , m_type(type)
        , m_convert(convert)
    {
    }
    static const QList<ZelPropertyEncoding> &all();

    const char *m_text;
    QMetaType m_type;
    Convert m_convert;
};
