// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

#include <type_traits>
#include <utility>

/// Gives a member of an object another value for the time of a scope, such as a mark that the object is busy. At the
/// end the member gets its former value back, unless the object has died: whatever is called in the scope may delete
/// it. Scopes nest.
template<typename Value> class ZelMemberScope
{
public:
    ZelMemberScope(const QObject *owner, Value &member, std::type_identity_t<Value> value)
        : m_owner(owner)
        , m_member(member)
        , m_former(std::exchange(member, std::move(value)))
    {
    }
    ~ZelMemberScope()
    {
        if (m_owner)
            m_member = std::move(m_former);
    }
    Q_DISABLE_COPY_MOVE(ZelMemberScope)

    bool isOwnerAlive() const { return m_owner; }

private:
    QPointer<const QObject> m_owner;
    Value &m_member;
    Value m_former;
};
