// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"

#include <QFont>

/// Draws a title in a rounded badge in its middle, as "No Selection", while it has no subviews.
class ZelEmptyView : public ZelView
{
    Q_OBJECT
    /// The localized "No Selection" by default.
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// The application's font by default.
    Q_PROPERTY(QFont titleFont READ titleFont WRITE setTitleFont NOTIFY titleFontChanged)
    /// A light grey by default.
    Q_PROPERTY(ZelColor titleColor READ titleColor WRITE setTitleColor NOTIFY titleColorChanged)
    /// A middle grey by default. A change shows with the next redraw, it does not ask for one.
    Q_PROPERTY(ZelColor titleBackgroundColor READ titleBackgroundColor WRITE setTitleBackgroundColor NOTIFY
                   titleBackgroundColorChanged)
    /// True by default: the badge is drawn below the subviews, too.
    Q_PROPERTY(bool forceShow READ forceShow WRITE setForceShow NOTIFY forceShowChanged)
public:
    explicit ZelEmptyView(QWidget *parent = nullptr);
    explicit ZelEmptyView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelEmptyView() override;

    /// Gives the title and its colours their defaults. Called by the constructors.
    void setUp();

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    const QFont &titleFont() const { return m_titleFont; }
    void setTitleFont(const QFont &font);
    const ZelColor &titleColor() const { return m_titleColor; }
    void setTitleColor(const ZelColor &color);
    const ZelColor &titleBackgroundColor() const { return m_titleBackgroundColor; }
    void setTitleBackgroundColor(const ZelColor &color);
    bool forceShow() const { return m_forceShow; }
    void setForceShow(bool forceShow);

    void viewDidInstall() override;
    void viewWillUninstall() override;
    void didAddSubview(QWidget *subview) override;
    void willRemoveSubview(QWidget *subview) override;
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void titleChanged();
    void titleFontChanged();
    void titleColorChanged();
    void titleBackgroundColorChanged();
    void forceShowChanged();

protected:
    ZelView *newInstance() const override { return new ZelEmptyView; }

private:
    QString m_title;
    QFont m_titleFont; // the application's
    ZelColor m_titleColor;
    ZelColor m_titleBackgroundColor;
    bool m_forceShow = true;
};
