#include "CommandControl.h"

namespace ribbon {

CommandControl::CommandControl(ControlKind kind, std::int32_t id) : m_kind(kind), m_id(id) {}

void CommandControl::Touch() { emit Changed(); }

void CommandControl::SetCaption(const QString& caption) {
  if (caption == m_caption) return;
  m_caption = caption;
  Touch();
}

void CommandControl::SetToolTip(const QString& toolTip) {
  if (toolTip == m_toolTip) return;
  m_toolTip = toolTip;
  Touch();
}

void CommandControl::SetBeginGroup(bool begin) {
  if (begin == m_beginGroup) return;
  m_beginGroup = begin;
  Touch();
}

void CommandControl::SetChecked(bool checked) {
  if (checked == m_checked) return;
  m_checked = checked;
  Touch();
}

void CommandControl::SetEnabled(bool enabled) {
  if (enabled == m_enabled) return;
  m_enabled = enabled;
  Touch();
}

void CommandControl::SetVisible(bool visible) {
  if (visible == m_visible) return;
  m_visible = visible;
  Touch();
}

void CommandControl::SetColor(std::int32_t color) {
  if (color == m_color) return;
  m_color = color;
  Touch();
}

void CommandControl::SetPos(std::int16_t pos) {
  if (pos == m_pos) return;
  m_pos = pos;
  Touch();
}

void CommandControl::SetRange(std::int16_t min, std::int16_t max) {
  m_min = min;
  m_max = max;
  Touch();
}

CommandControl& CommandControl::Add(ControlKind kind, std::int32_t id) {
  m_controls.push_back(std::make_unique<CommandControl>(kind, id));
  return *m_controls.back();
}

CommandControl* CommandControl::Find(std::int32_t id) {
  if (m_id == id) return this;
  for (const auto& control : m_controls) {
    if (CommandControl* found = control->Find(id)) return found;
  }
  return nullptr;
}

CommandControl* CommandControl::FindByName(const QString& name) {
  if (!m_name.isEmpty() && m_name == name) return this;
  for (const auto& control : m_controls) {
    if (CommandControl* found = control->FindByName(name)) return found;
  }
  return nullptr;
}

}  // namespace ribbon
