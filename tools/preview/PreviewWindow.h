// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Checking/ZelDescriptionChecker.h"
#include "PreviewLog.h"
#include "PreviewModel.h"
#include "PreviewStandIns.h"

#include <QFont>
#include <QPalette>
#include <QUndoStack>
#include <QWidget>
#include <memory>

class QComboBox;
class QListWidget;
class QToolBar;
class QTranslator;
class ZelLiveInspector;

/// A window that shows the panel of a description beside what is wrong with it, with a model that is made up. Whoever
/// writes the description tries it with it: none, one, equal and different objects, palettes, widths, languages.
class PreviewWindow : public QWidget
{
    Q_OBJECT
public:
    struct Options
    {
        QUrl description;
        PreviewModel::Settings model;
        ZelDescriptionChecker::Options check;
        QStringList translations;                        ///< files .qm
        QString selection = QStringLiteral("different"); ///< or "none", "one", "equal"
        int width = 320;                                 ///< of the panel, in pixels
        int textSize = 100;                              ///< percent
        int language = 0; ///< 0 is as it is written, 1 the longer texts, then the translations
        bool isDark = false;
        bool isRightToLeft = false;
    };
    explicit PreviewWindow(const Options &options);
    ~PreviewWindow() override;

    /// What the list says, line by line.
    QStringList complaints() const;
    /// Whether the description could not be shown.
    bool hasErrors() const;

private:
    void makeToolBar(const Options &options);
    void makeLayout();
    QAction *addSwitch(const QString &title, bool isOn, void (PreviewWindow::*set)(bool));
    void prepare();
    void showObjects();
    void showComplaints();
    void addLine(const QString &line);
    QStringList mistakes() const;

    void select(const QList<int> &rows);
    void setDark(bool dark);
    void setRightToLeft(bool rightToLeft);
    void setPanelWidth(int width);
    void setTextSize(int percent);
    void setLanguage(int index);

    QUndoStack m_undoStack;
    PreviewLog m_log;
    PreviewStandIns m_standIns;
    QUrl m_description;
    PreviewModel m_model;
    QStringList m_translations;
    std::unique_ptr<QTranslator> m_translator;
    ZelDescriptionChecker m_checker;
    QStringList m_mistakes; // that the checker finds
    QStringList m_missing;  // what is stood for
    QStringList m_lines;    // of the log, since the last panel was built
    QPalette m_lightPalette;
    QFont m_font;
    QToolBar *m_tools;
    QComboBox *m_selections;
    QListWidget *m_objects;
    QListWidget *m_complaints;
    ZelLiveInspector *m_live;
};
