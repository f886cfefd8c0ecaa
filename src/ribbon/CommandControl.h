#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace ribbon {

// What a control is on a ribbon or a menu; the views draw each kind in their own way.
enum class ControlKind : std::uint8_t {
  Button,       // runs its command
  CheckBox,     // a toggle: the command flips Checked and acts on the new value
  Popup,        // a menu, a drop-down button or a gallery of further controls
  Slider,       // a value between Min and Max in Pos
  ColorPicker,  // a colour in Color, chosen from a palette
  Label,        // text only, such as "Zoom: X and Y"
  Tab,          // a ribbon tab: groups
  Group,        // a ribbon group: controls under a caption
};

// One control of the command bars, found by its command id. It holds the state that the program
// reads and writes (Checked, Enabled, Visible, Color, Pos, the caption); the views on the screen
// draw it and follow its Changed signal, so that the program never talks to a view.
class CommandControl : public QObject {
  Q_OBJECT

public:
  CommandControl(ControlKind kind, std::int32_t id);

  std::int32_t Id() const { return m_id; }
  ControlKind Kind() const { return m_kind; }

  // A name for the controls that the forms address by name rather than id ("mnuCartesian").
  QString Name() const { return m_name; }
  void SetName(const QString& name) { m_name = name; }
  QString Caption() const { return m_caption; }
  void SetCaption(const QString& caption);
  QString ToolTip() const { return m_toolTip; }
  void SetToolTip(const QString& toolTip);
  // A longer description, shown under the title of a rich tool tip.
  QString Description() const { return m_description; }
  void SetDescription(const QString& description) { m_description = description; }
  // An icon of the program's own set or of the desktop's theme, by name.
  QString IconName() const { return m_iconName; }
  void SetIconName(const QString& name) { m_iconName = name; }
  // A key sequence in Qt's portable form ("Ctrl+D").
  QString Shortcut() const { return m_shortcut; }
  void SetShortcut(const QString& shortcut) { m_shortcut = shortcut; }
  // A word that the command takes from the design file, such as a display command's keyword.
  QString Keyword() const { return m_keyword; }
  void SetKeyword(const QString& keyword) { m_keyword = keyword; }
  // A separator goes before this control.
  bool BeginGroup() const { return m_beginGroup; }
  void SetBeginGroup(bool begin);
  // Shown large (an icon over its caption) on a ribbon.
  bool Large() const { return m_large; }
  void SetLarge(bool large) { m_large = large; }

  bool Checked() const { return m_checked; }
  void SetChecked(bool checked);
  bool Enabled() const { return m_enabled; }
  void SetEnabled(bool enabled);
  bool Visible() const { return m_visible; }
  void SetVisible(bool visible);
  // Red in the low byte.
  std::int32_t Color() const { return m_color; }
  void SetColor(std::int32_t color);
  std::int16_t Pos() const { return m_pos; }
  void SetPos(std::int16_t pos);
  std::int16_t Min() const { return m_min; }
  std::int16_t Max() const { return m_max; }
  void SetRange(std::int16_t min, std::int16_t max);

  const std::vector<std::unique_ptr<CommandControl>>& Controls() const { return m_controls; }
  CommandControl& Add(ControlKind kind, std::int32_t id);
  // The first control with this id here or below, depth first; this one included.
  CommandControl* Find(std::int32_t id);
  CommandControl* FindByName(const QString& name);

signals:
  // Any state that a view shows has changed.
  void Changed();

private:
  void Touch();

  ControlKind m_kind;
  std::int32_t m_id;
  QString m_name, m_caption, m_toolTip, m_description, m_iconName, m_shortcut, m_keyword;
  bool m_beginGroup = false;
  bool m_large = false;
  bool m_checked = false;
  bool m_enabled = true;
  bool m_visible = true;
  std::int32_t m_color = 0;
  std::int16_t m_pos = 0, m_min = 0, m_max = 100;
  std::vector<std::unique_ptr<CommandControl>> m_controls;
};

}  // namespace ribbon
