// SPDX-License-Identifier: MIT
#pragma once

#include "model/Shape.h"

#include <QSizeF>
#include <QStringList>

/// A drawing: its shapes from the bottom to the top, its page and its layers.
///
/// The document owns its shapes, without being their QObject parent: taking one child of a hundred thousand out of its
/// parent's list costs a search of that list.
class Document : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString title MEMBER m_title NOTIFY titleChanged)
    Q_PROPERTY(QVariant author MEMBER m_author NOTIFY titleChanged)
    Q_PROPERTY(QDate created MEMBER m_created NOTIFY titleChanged)
    Q_PROPERTY(QSizeF pageSize READ pageSize WRITE setPageSize NOTIFY pageChanged)
    Q_PROPERTY(double pageWidth READ pageWidth WRITE setPageWidth NOTIFY pageChanged)
    Q_PROPERTY(Units units READ units WRITE setUnits NOTIFY unitsChanged)
    Q_PROPERTY(bool gridVisible READ isGridVisible WRITE setGridVisible NOTIFY pageChanged)
    Q_PROPERTY(double gridSpacing READ gridSpacing WRITE setGridSpacing NOTIFY pageChanged)
    Q_PROPERTY(double placementStep READ placementStep NOTIFY pageChanged)
    Q_PROPERTY(int visibleLayers READ visibleLayers WRITE setVisibleLayers NOTIFY pageChanged)
    Q_PROPERTY(QStringList layerNames READ layerNames NOTIFY namesChanged)
    Q_PROPERTY(QList<int> layerNumbers READ layerNumbers CONSTANT)
    Q_PROPERTY(QStringList patternNames READ patternNames CONSTANT)
    Q_PROPERTY(double standardCornerRadius MEMBER m_standardCornerRadius NOTIFY standardsChanged)
    Q_PROPERTY(double standardShadowOffset MEMBER m_standardShadowOffset NOTIFY standardsChanged)
    Q_PROPERTY(int shapeCount READ shapeCount NOTIFY shapeCountChanged)

public:
    enum Units : int { Points, Millimeters, Inches };
    Q_ENUM(Units)

    /// A shape and the row that it has, or is to have.
    struct Placement
    {
        int row;
        Shape *shape;
    };
    using Placements = QList<Placement>;

    explicit Document(QObject *parent = nullptr);
    ~Document() override;

    const QList<Shape *> &shapes() const { return m_shapes; }
    int shapeCount() const { return int(m_shapes.size()); }
    /// The shape's place from the bottom, from 0; -1 while it is in no document.
    static int row(const Shape *shape) { return shape->m_row; }
    /// Whether the shape is painted and can be pressed: it and its layer are visible.
    bool isShown(const Shape *shape) const;

    /// Puts shapes at their rows, given from the lowest to the highest; the document owns them from then on.
    void insert(const Placements &placements);
    /// Puts shapes on top.
    void append(const QList<Shape *> &shapes);
    /// Gives shapes back to the caller, with the rows that they had.
    /// By value, since the list may be the document's or the selection's own.
    Placements take(QList<Shape *> shapes);
    /// The same shapes in another order.
    void setOrder(const QList<Shape *> &shapes);

    QSizeF pageSize() const { return m_pageSize; }
    void setPageSize(const QSizeF &size);
    double pageWidth() const { return m_pageSize.width(); }
    void setPageWidth(double width) { setPageSize({width, m_pageSize.height()}); }

    Units units() const { return m_units; }
    void setUnits(Units units);
    /// A length of so many points in the units of the document, with their sign.
    QString lengthText(double points) const;

    bool isGridVisible() const { return m_gridVisible; }
    void setGridVisible(bool visible) { changePage(m_gridVisible, visible); }
    double gridSpacing() const { return m_gridSpacing; }
    void setGridSpacing(double points) { changePage(m_gridSpacing, qBound(2.0, points, 1000.0)); }
    /// How far the inspector moves shapes in one step: by the grid while that is seen, else by a point.
    double placementStep() const { return m_gridVisible ? m_gridSpacing : 1; }
    /// One bit a layer.
    int visibleLayers() const { return m_visibleLayers; }
    void setVisibleLayers(int bits) { changePage(m_visibleLayers, bits); }

    QStringList layerNames() const;
    QList<int> layerNumbers() const { return {0, 1, 2}; }
    /// What shapes may be filled with. An unknown name stands for a plain colour.
    static QStringList patternNames();
    static Qt::BrushStyle patternNamed(const QString &name);
    /// Names that the user sees follow the language.
    void retranslate() { Q_EMIT namesChanged(); }

Q_SIGNALS:
    void structureAboutToChange();
    void structureChanged(const QList<Shape *> &added, const QList<Shape *> &removed);
    void shapeCountChanged();
    void shapeChanged(Shape *shape);
    void pageChanged();
    void titleChanged();
    void unitsChanged();
    void namesChanged();
    void standardsChanged();

private:
    void adopt(Shape *shape);
    void replaceShapes(const QList<Shape *> &shapes, const QList<Shape *> &added, const QList<Shape *> &removed);
    template<typename Value> void changePage(Value &member, const Value &value)
    {
        if (member == value)
            return;
        member = value;
        Q_EMIT pageChanged();
    }

    QList<Shape *> m_shapes;
    QString m_title;
    QVariant m_author;
    QDate m_created = QDate::currentDate();
    QSizeF m_pageSize{842, 595};
    Units m_units = Points;
    bool m_gridVisible = false;
    double m_gridSpacing = 20;
    int m_visibleLayers = 0x7;
    double m_standardCornerRadius = 12;
    double m_standardShadowOffset = 4;
};
