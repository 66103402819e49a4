// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Recorder.h"
#include <QtTest>
#include <QtWidgets>
#include <memory>
#include <stdexcept>

/// A recorder that observes a path for its life.
class Watch : public Recorder
{
public:
    static constexpr quint32 oldAndNew = ZelKeyValueObservingOptionOld | ZelKeyValueObservingOptionNew;
    static constexpr quint32 prior = ZelKeyValueObservingOptionPrior;
    Watch(QObject *object, const ZelKeyPath &path, quint32 options = oldAndNew)
        : m_object(object)
        , m_path(path)
    {
        ZelAddObserver(object, this, path, options, &m_object);
    }
    ~Watch() { stop(); }
    void stop() { ZelRemoveObserver(m_object, this, m_path, &m_object); }
    void beginThrowing()
    {
        react = [] { throw std::runtime_error("refused"); };
    }
    QVariant lastOld() const { return changes.last().keyValueChangeOld(); }
    QVariant lastNew() const { return changes.last().keyValueChangeNew(); }
    bool isLastChanged() const { return changes.last().keyValueChanged(); }

private:
    QPointer<QObject> m_object;
    ZelKeyPath m_path;
};

/// Room for an object, and then for another at the same address.
template<typename Type> class Place
{
public:
    ~Place()
    {
        if (object)
            end();
    }
    Type *make() { return object = new (m_memory) Type; }
    void end() { std::destroy_at(std::exchange(object, nullptr)); }
    Type *object = nullptr;

private:
    alignas(Type) char m_memory[sizeof(Type)];
};

/// Lets models of random worlds, one for each seed, go their steps, up to the first failure.
template<typename World, typename... Arguments> void stepThrough(unsigned seeds, int steps, Arguments... arguments)
{
    for (unsigned seed = 1; seed <= seeds && !QTest::currentTestFailed(); ++seed) {
        World world(seed, arguments...);
        for (int step = 0; step < steps && !QTest::currentTestFailed(); ++step) {
            world.step();
            if (QTest::currentTestFailed())
                qWarning() << "seed" << seed << "step" << step;
        }
    }
}
