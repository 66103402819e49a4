// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorCompositeProperty.h"
#include "Inspector/Properties/ZelOriginSelectionView.h"

/// Edits a rectangle (QRectF or QRect). Its origin is measured at a chosen anchor, and its size changes about that
/// anchor.
///
/// The anchors are those on screen. Where the model's coordinates grow upwards, that is where `flipped` is not true,
/// the upper ones stand for the rectangle's maximum y.
class ZEL_EXPORT ZelInspectorBoundsProperty : public ZelInspectorCompositeProperty,
                                              public ZelOriginSelectionViewDelegate
{
    Q_OBJECT
    Q_CLASSINFO("ZelState", "anchorIndex")
    Q_PROPERTY(QString flippedKeyPath MEMBER flippedKeyPath)
    Q_PROPERTY(bool showOriginSelector MEMBER showOriginSelector)
    Q_PROPERTY(ZelOriginSelectionView *originSelectionView MEMBER m_originSelectionView)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    Q_PROPERTY(ZelInspectorNumberProperty *originXProperty READ originXProperty STORED false)
    Q_PROPERTY(ZelInspectorNumberProperty *originYProperty READ originYProperty STORED false)
    Q_PROPERTY(ZelInspectorNumberProperty *sizeWidthProperty READ sizeWidthProperty STORED false)
    Q_PROPERTY(ZelInspectorNumberProperty *sizeHeightProperty READ sizeHeightProperty STORED false)
    Q_PROPERTY(QVariant flipped READ flipped WRITE setFlipped NOTIFY flippedChanged)
    Q_PROPERTY(quint64 anchor READ anchor WRITE setAnchorNumber NOTIFY anchorChanged)
    Q_PROPERTY(int anchorIndex READ anchorIndex WRITE setAnchorIndex NOTIFY anchorChanged STORED false)
    Q_PROPERTY(QVariant originX READ originX WRITE setOriginX NOTIFY firstChanged)
    Q_PROPERTY(QVariant originY READ originY WRITE setOriginY NOTIFY secondChanged)
    Q_PROPERTY(QVariant sizeWidth READ sizeWidth WRITE setSizeWidth NOTIFY thirdChanged)
    Q_PROPERTY(QVariant sizeHeight READ sizeHeight WRITE setSizeHeight NOTIFY fourthChanged)
public:
    explicit ZelInspectorBoundsProperty(QObject *owner);

    QString flippedKeyPath; ///< of a truth value that `flipped` follows
    bool showOriginSelector = false;

    /// Whether the model's coordinates grow downwards; absent by default. While it is a selection marker, nothing can
    /// be edited.
    const QVariant &flipped() const { return m_flipped; }
    void setFlipped(const QVariant &flipped);
    ZelRectAnchor anchor() const { return m_anchor; }
    void setAnchor(ZelRectAnchor anchor);
    void setAnchorNumber(quint64 anchor) { setAnchor(ZelRectAnchor(anchor)); }
    /// The anchor as its number, of which any other is ignored.
    int anchorIndex() const { return int(m_anchor); }
    void setAnchorIndex(int index);
    /// The anchor of the model's rectangle that an anchor on screen stands for. A value that is no anchor is an
    /// assertion, "Unsupported case".
    ZelRectAnchor flippedAnchor(ZelRectAnchor anchor) const;

    ZelOriginSelectionView *originSelectionView() const { return m_originSelectionView; }
    ZelLabel *label() const { return m_label; }
    ZelInspectorNumberProperty *originXProperty() const { return m_numberProperties[OriginX]; }
    ZelInspectorNumberProperty *originYProperty() const { return m_numberProperties[OriginY]; }
    ZelInspectorNumberProperty *sizeWidthProperty() const { return m_numberProperties[SizeWidth]; }
    ZelInspectorNumberProperty *sizeHeightProperty() const { return m_numberProperties[SizeHeight]; }

    // The components: a number, absent, or a selection marker.
    const QVariant &originX() const { return component(OriginX); }
    void setOriginX(const QVariant &value) { setComponent(OriginX, value); }
    const QVariant &originY() const { return component(OriginY); }
    void setOriginY(const QVariant &value) { setComponent(OriginY, value); }
    const QVariant &sizeWidth() const { return component(SizeWidth); }
    void setSizeWidth(const QVariant &value) { setComponent(SizeWidth, value); }
    const QVariant &sizeHeight() const { return component(SizeHeight); }
    void setSizeHeight(const QVariant &value) { setComponent(SizeHeight, value); }
    void updateOriginX() { updateComponent(OriginX); }
    void updateOriginY() { updateComponent(OriginY); }
    void updateSizeWidth() { updateComponent(SizeWidth); }
    void updateSizeHeight() { updateComponent(SizeHeight); }
    /// Reads the owner's value at flippedKeyPath.
    void updateFlipped();

    QStringList searchTexts() const override;
    void originSelectionViewDidSelectAnchor(ZelOriginSelectionView *view, ZelRectAnchor anchor) override;
    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    QWidget *viewForBaselineAlignment() override;

Q_SIGNALS:
    void flippedChanged();
    void anchorChanged();

protected:
    void makeComponents(std::span<const Numbers> values, int index, double *components) const override;
    void replaceComponents(std::span<Numbers> values, int index, const double *components) const override;
    bool computeInternalEnabled() const override;

private:
    enum Component { OriginX, OriginY, SizeWidth, SizeHeight, ComponentCount };

    void addNumberEditors(ZelView *container);
    void addOriginSelector(ZelView *container);
    void layOut(ZelView *container);

    QPointer<ZelOriginSelectionView> m_originSelectionView;
    QPointer<ZelLabel> m_label;
    QPointer<ZelInspectorNumberProperty> m_numberProperties[ComponentCount];
    QVariant m_flipped;
    bool m_isFlipped = false; // m_flipped as a truth value; a marker counts as false
    ZelRectAnchor m_anchor = ZelOriginTopLeft;
};
