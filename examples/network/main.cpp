// SPDX-License-Identifier: MIT
// A network in a tree, with an inspector of what is selected there.
#include "LevelProperty.h"
#include "NetworkWindow.h"

#include <Core/KeyValue/ZelClassRegistry.h>

#include <QApplication>
#include <QTranslator>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QTranslator translator; // the texts of descriptions are in the context "Application"
    if (translator.load(QLocale(), "network", "_", ":/translations"))
        QCoreApplication::installTranslator(&translator);
    ZelClassRegistry::registerClass<LevelProperty>(); // class="LevelProperty" in descriptions
    NetworkWindow window;
    window.resize(760, 560);
    window.show();
    return application.exec();
}
