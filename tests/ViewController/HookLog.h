// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"
#include <QtTest>
#include <QtWidgets>
#include <functional>

/// A view that writes down its hooks, and does what a test wants in them.
class LoggingView : public ZelView
{
public:
    explicit LoggingView(QStringList *log, const QString &name, QWidget *parent = nullptr)
        : ZelView(parent)
        , m_log(log)
    {
        setObjectName(name);
    }
    ~LoggingView() override { uninstall(); }

    std::function<void()> onInstall = [] {};
    std::function<void()> onUninstall = [] {};
    int constraintUpdates = 0;

    void viewDidInstall() override
    {
        ZelView::viewDidInstall();
        m_log->append(objectName() + '+');
        onInstall();
    }
    void viewWillUninstall() override
    {
        ZelView::viewWillUninstall();
        m_log->append(objectName() + '-');
        onUninstall();
    }
    void updateConstraints() override
    {
        ZelView::updateConstraints();
        ++constraintUpdates;
    }

private:
    QStringList *m_log;
};

/// A controller that does the same.
class LoggingController : public ZelViewController
{
public:
    LoggingController(QStringList *log, const QString &name, QObject *parent = nullptr)
        : ZelViewController(parent)
        , m_log(log)
    {
        setObjectName(name);
    }
    ~LoggingController() override { uninstall(); }

    std::function<QWidget *()> makeView = [] { return new ZelView; };

    void loadView() override
    {
        note(" load");
        setView(makeView());
    }
    void viewWillLoad() override { note(" willLoad"); }
    void viewDidLoad() override { note(" didLoad"); }
    void viewWillUnload() override { note(" willUnload"); }
    void viewDidUnload() override { note(" didUnload"); }
    void viewDidInstall() override
    {
        ZelViewController::viewDidInstall();
        note("+");
    }
    void viewWillUninstall() override
    {
        ZelViewController::viewWillUninstall();
        note("-");
    }
    void updateConstraints() override { note(" updateConstraints"); }
    void layout() override { note(" layout"); }

private:
    void note(const char *what) { m_log->append(objectName() + QLatin1String(what)); }

    QStringList *m_log;
};
