#pragma once

#include <QProxyStyle>
#include <QWidget>

#include "gui/framework/GdiManager.h"
#include "platform/Export.h"

namespace Gui
{
/// The look of every ordinary control: drawn from the roles of the `GdiManager` and the control's named properties. A
/// skinned control keeps its keys and its accessible name. The skinner must outlive the controls.
class ORV_API Skinner final : public QProxyStyle
{
public:
    static constexpr int MENUGAP = 5;  ///< logical pixels left of the text of a menu item

    explicit Skinner(GdiManager& manager);

    GdiManager& getGdiManager() const { return gdi; }

    /// Skins a window and its controls, those that are made later included.
    void skinWindow(QWidget& window);
    /// Draws a skinned window again after a change of the palette or the scale.
    void refresh(QWidget& window);

    // Set a property of a control and repaint it.
    static void setGrayText(QWidget& control, bool on);
    static void setText(QWidget& control, bool on);
    static void setSelected(QWidget& control, bool on);
    static void setNoWheel(QWidget& edit, bool on);
    static void showZeroAsBlank(QWidget& edit, bool on);
    static void setMin(QWidget& edit, int lowest);
    static void setMax(QWidget& edit, int highest);
    static void setMinMax(QWidget& edit, int lowest, int highest);

    /// Shows that several values differ: in gray, and the text of an edit is cleared without a signal. That of a
    /// `ComboBox` stays.
    static void indicateInvalidValue(QWidget& control, bool invalid);

    /// The control and its label, both.
    static void enableControl(QWidget& label, QWidget& control, bool on);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;

    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    using Role = GdiManager::Role;

    void skinChild(QWidget& child);
    QColor labelColour(const QWidget& widget) const;
    QPalette paletteFor(const QWidget& widget) const;

    void drawCheckMark(QPainter& painter, const QStyleOption& option) const;
    void drawRadioMark(QPainter& painter, const QStyleOption& option) const;
    void drawItemPanel(QPainter& painter, const QStyleOption& option) const;
    void drawPushButton(QPainter& painter, const QStyleOption& option, const QString& text,
                        const QWidget* widget) const;
    void drawHeader(QPainter& painter, const QStyleOption& option) const;
    void drawMenuItem(QPainter& painter, const QStyleOption& option, const QWidget* widget) const;
    void drawMenuSeparator(QPainter& painter, const QRect& rectangle) const;
    void drawSlider(QPainter& painter, const QStyleOptionComplex& option) const;
    void drawScrollBar(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;
    void drawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;

    GdiManager& gdi;
};
}  // namespace Gui
