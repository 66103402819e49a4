// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/ZelTypeTable.h"
#include "Inspector/Checking/private/ZelValueKinds.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"

/// Where key paths begin and what controllers select, at one place of a description.
struct ZelTypeScope
{
    QString owner;
    QHash<QString, QStringList> selections; ///< classes by the key path of the controller
    QStringList keys;                       ///< as ZelDescriptionChecker::Options has them
};

/// What descriptions say of their classes by themselves, in attributes that the reader passes over.
namespace ZelTypeAttributes {

extern const QString owner;
extern const QString selection;
extern const QString keys;

/// The scope within the element, given the one around it. What of the selections cannot be read is in `wrong`.
ZelTypeScope scopeWithin(const ZelTypeScope &around, const ZelInspectorConfiguration &element,
                         QString *wrong = nullptr);

} // namespace ZelTypeAttributes

/// Follows a key path through the classes of an application.
class ZelKeyPathResolver
{
public:
    struct Result
    {
        enum State {
            Resolved,
            Missing, ///< some key does not exist
            Open     ///< it leads to something of which nothing is known
        };
        State state = Open;
        QString message;    ///< what is wrong, or why nothing is known of it where the user can change that
        QString suggestion; ///< what was meant in place of the whole path
        ZelTypeTable::Found last;
        const ZelTypeTable::Enumeration *enumeration = nullptr; ///< of which the value is; null if it is of none
        QString type;                                           ///< of the value; null if not known
        ZelValueKinds::ValueKind kind = ZelValueKinds::Unknown;
        QStringList silent; ///< the properties on the way without a NOTIFY signal, "Class.key"

        /// The type as the program names it when it runs: an enumeration with the class that declares it.
        QString qualifiedType() const;
    };

    ZelKeyPathResolver(const ZelTypeTable &types, const ZelTypeScope &scope)
        : m_types(types)
        , m_scope(scope)
    {
    }
    Result resolve(const QString &keyPath) const;

private:
    struct Position;
    using Classes = QList<const ZelTypeTable::Class *>;
    Classes classesNamed(const QStringList &names) const;
    bool stepIntoSelection(Position &position, const QString &key) const;
    void step(Position &position, const QString &key) const;
    void stepIntoValue(Position &position, const QString &key) const;
    void fail(Position &position, const QString &key, const QString &message, const QStringList &known) const;
    void setValue(Position &position, const ZelTypeTable::Found &found) const;
    bool lacksSelection(Position &position, const QString &key) const;
    bool isKeyOf(const ZelTypeTable::Class &type, const QString &key) const;
    qsizetype controllerLength(const QStringList &keys) const;
    QString pathThroughSelection(const QString &rest) const;

    const ZelTypeTable &m_types;
    const ZelTypeScope &m_scope;
};
