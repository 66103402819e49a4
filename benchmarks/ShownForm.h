// SPDX-License-Identifier: MIT
#pragma once

#include "Bench.h"

#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorPane.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QUrl>
#include <QVBoxLayout>

#include <memory>

/// Showing what `make` answers lays out and paints; both are part of the time. Deleting is not.
template<typename Make> Bench::Work shownForm(Make make)
{
    auto window = std::make_shared<std::unique_ptr<QWidget>>();
    return {[] {},
            [window, make] {
                window->reset(make());
                (*window)->resize(300, 900);
                (*window)->show();
                QApplication::processEvents();
            },
            [window] {
                Bench::expect(!(*window)->visibleRegion().isEmpty(), "the window is not shown");
                window->reset();
            }};
}

/// A window with the pane that the file describes.
inline QWidget *describedForm(QObject *owner, const QString &file)
{
    ZelDeclarativeInspectorGenerator generator;
    generator.setUrl(QUrl::fromLocalFile(file));
    generator.setOwner(owner);
    auto *window = new QWidget;
    auto *column = new QVBoxLayout(window);
    column->setContentsMargins(0, 0, 0, 0);
    ZelInspectorPane *pane = generator.createPane();
    pane->setParent(window);
    column->addWidget(pane->view());
    return window;
}
