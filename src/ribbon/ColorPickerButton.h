#pragma once

#include "RibbonButton.h"

#include "platform/ColorChooser.h"

class QAction;

namespace ribbon {

class ColorPalette;

// A colour picker of the ribbon: a split button whose icon carries the control's colour as a
// swatch. Its main part executes the control with the colour it has; its arrow drops down a
// palette, where a pick sets the control's Color and executes it, and "More colours..." asks the
// colour dialog for any other.
class ColorPickerButton : public RibbonButton {
  Q_OBJECT

public:
  ColorPickerButton(CommandControl& control, CommandBars& bars, platform::ColorChooser& chooser, ButtonStyle style,
                    QWidget* parent = nullptr);

  ColorPalette* Palette() const { return m_palette; }
  QAction* MoreColorsAction() const { return m_more; }
  // The colour that the swatch shows now.
  QColor SwatchColor() const { return m_swatch; }

protected:
  void Follow() override;

private:
  void BuildMenu();
  void Pick(const QColor& color);
  void ChooseMore();

  platform::ColorChooser& m_chooser;
  ColorPalette* m_palette = nullptr;
  QAction* m_more = nullptr;
  QIcon m_baseIcon;
  QColor m_swatch;
};

}  // namespace ribbon
