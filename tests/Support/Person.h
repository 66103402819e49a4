// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRectF>
#include <QVariant>

/// A model as any Qt application has it: it knows nothing of the library.
class Person : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(double height READ height WRITE setHeight NOTIFY heightChanged)
    Q_PROPERTY(int flags READ flags WRITE setFlags NOTIFY flagsChanged)
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)
    Q_PROPERTY(QVariant note READ note WRITE setNote NOTIFY noteChanged)
    Q_PROPERTY(Person *friendOf READ friendOf WRITE setFriendOf NOTIFY friendOfChanged)
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY frameChanged)
    Q_PROPERTY(QString silent MEMBER silent)
    Q_PROPERTY(int nameLength READ nameLength)
    Q_PROPERTY(Role role READ role WRITE setRole NOTIFY roleChanged)
    Q_PROPERTY(QStringList tags MEMBER tags NOTIFY tagsChanged)
public:
    enum Role { Guest, Member, Admin };
    Q_ENUM(Role)
    explicit Person(const QString &name = QString(), QObject *parent = nullptr)
        : QObject(parent)
        , m_name(name)
    {
    }

    QString name() const { return m_name; }
    void setName(const QString &name) { store(m_name, name, &Person::nameChanged); }
    double height() const { return m_height; }
    void setHeight(double height) { store(m_height, height, &Person::heightChanged); }
    int flags() const { return m_flags; }
    void setFlags(int flags) { store(m_flags, flags, &Person::flagsChanged); }
    bool isActive() const { return m_active; }
    void setActive(bool active) { store(m_active, active, &Person::activeChanged); }
    QVariant note() const { return m_note; }
    void setNote(const QVariant &note) { store(m_note, note, &Person::noteChanged); }
    Person *friendOf() const { return m_friendOf; }
    void setFriendOf(Person *other) { store(m_friendOf, other, &Person::friendOfChanged); }
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF &frame) { store(m_frame, frame, &Person::frameChanged); }
    Role role() const { return m_role; }
    void setRole(Role role) { store(m_role, role, &Person::roleChanged); }
    int nameLength() const { return int(m_name.size()); }

    QString silent;
    QStringList tags;

Q_SIGNALS:
    void nameChanged();
    void heightChanged();
    void flagsChanged();
    void activeChanged();
    void noteChanged();
    void friendOfChanged();
    void frameChanged();
    void roleChanged();
    void tagsChanged();

private:
    template<typename Type> void store(Type &member, const Type &value, void (Person::*changed)())
    {
        if (member == value)
            return;
        member = value;
        Q_EMIT(this->*changed)();
    }

    QString m_name;
    double m_height = 0;
    int m_flags = 0;
    bool m_active = false;
    QVariant m_note;
    Person *m_friendOf = nullptr;
    QRectF m_frame;
    Role m_role = Guest;
};
