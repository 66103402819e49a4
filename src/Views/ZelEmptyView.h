// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

#include <QFont>

/// Draws a title such as "No Selection" in a rounded badge in its middle while it has no subviews.
class ZEL_EXPORT ZelEmptyView : public ZelView
{
    Q_OBJECT
    /// The localized "No Selection" by default.
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// The application's font by default.
    Q_PROPERTY(QFont titleFont READ titleFont WRITE setTitleFont NOTIFY titleFontChanged)
    /// A light grey by default.
    Q_PROPERTY(ZelColor titleColor READ titleColor WRITE setTitleColor NOTIFY titleColorChanged)
    /// A middle grey by default. A change does not cause a redraw; the next redraw shows it.
    Q_PROPERTY(ZelColor titleBackgroundColor READ titleBackgroundColor WRITE setTitleBackgroundColor NOTIFY
                   titleBackgroundColorChanged)
    /// Whether the badge is drawn, below the subviews, also if there are any; true by default.
    Q_PROPERTY(bool forceShow READ forceShow WRITE setForceShow NOTIFY forceShowChanged)
public:
    explicit ZelEmptyView(QWidget *parent = nullptr);
    explicit ZelEmptyView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);

    /// Sets the title and its colours to their defaults. The constructors call it.
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
    QFont m_titleFont; // by default the application's
    ZelColor m_titleColor;
    ZelColor m_titleBackgroundColor;
    bool m_forceShow = true;
};
