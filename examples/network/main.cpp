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
    // Those of descriptions and those of the library itself are in the context "Application".
    for (const char *texts : {"network", "inspector", "zel"}) {
        auto *translator = new QTranslator(&application);
        if (translator->load(QLocale(), texts, "_", ":/"))
            QCoreApplication::installTranslator(translator);
    }
    ZelClassRegistry::registerClass<LevelProperty>(); // class="LevelProperty" in descriptions
    NetworkWindow window;
    window.resize(760, 560);
    window.show();
    return application.exec();
}
