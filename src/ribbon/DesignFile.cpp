#include "DesignFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace ribbon {

namespace {

constexpr int kMaxDepth = 8;

std::optional<ControlKind> KindOf(const QString& name) {
  if (name == u"button") return ControlKind::Button;
  if (name == u"check") return ControlKind::CheckBox;
  if (name == u"popup") return ControlKind::Popup;
  if (name == u"slider") return ControlKind::Slider;
  if (name == u"color") return ControlKind::ColorPicker;
  if (name == u"label") return ControlKind::Label;
  if (name == u"tab") return ControlKind::Tab;
  if (name == u"group") return ControlKind::Group;
  return std::nullopt;
}

std::int16_t Short(const QJsonValue& value, std::int16_t fallback) {
  if (!value.isDouble()) return fallback;
  return static_cast<std::int16_t>(std::clamp(value.toDouble(), -32768.0, 32767.0));
}

std::int32_t Integer(const QJsonValue& value, std::int32_t fallback) {
  if (!value.isDouble()) return fallback;
  return static_cast<std::int32_t>(std::clamp(value.toDouble(), -2147483648.0, 2147483647.0));
}

void ReadControls(const QJsonArray& list, CommandControl& parent, int depth);

void ReadControl(const QJsonObject& o, CommandControl& parent, int depth) {
  const auto kind = KindOf(o.value(u"kind").toString());
  if (!kind) return;
  CommandControl& c = parent.Add(*kind, Integer(o.value(u"id"), 0));
  c.SetName(o.value(u"name").toString());
  c.SetCaption(o.value(u"caption").toString());
  c.SetToolTip(o.value(u"tooltip").toString());
  c.SetDescription(o.value(u"description").toString());
  c.SetIconName(o.value(u"icon").toString());
  c.SetShortcut(o.value(u"shortcut").toString());
  c.SetKeyword(o.value(u"keyword").toString());
  c.SetBeginGroup(o.value(u"begingroup").toBool(false));
  c.SetLarge(o.value(u"large").toBool(false));
  c.SetChecked(o.value(u"checked").toBool(false));
  c.SetEnabled(o.value(u"enabled").toBool(true));
  c.SetVisible(o.value(u"visible").toBool(true));
  c.SetColor(Integer(o.value(u"color"), 0));
  c.SetRange(Short(o.value(u"min"), 0), Short(o.value(u"max"), 100));
  c.SetPos(Short(o.value(u"pos"), c.Min()));
  if (depth < kMaxDepth) ReadControls(o.value(u"controls").toArray(), c, depth + 1);
}

void ReadControls(const QJsonArray& list, CommandControl& parent, int depth) {
  for (const QJsonValue& item : list) {
    if (item.isObject()) ReadControl(item.toObject(), parent, depth);
  }
}

}  // namespace

std::unique_ptr<CommandControl> ReadDesign(const QByteArray& text) {
  if (text.size() > kMaxDesignFileSize) return nullptr;
  QJsonParseError error{};
  const QJsonDocument document = QJsonDocument::fromJson(text, &error);
  if (error.error != QJsonParseError::NoError || !document.isObject()) return nullptr;
  const QJsonObject top = document.object();
  if (top.value(u"commandbars").toInt() != 1) return nullptr;
  auto root = std::make_unique<CommandControl>(ControlKind::Popup, 0);
  ReadControls(top.value(u"controls").toArray(), *root, 0);
  return root;
}

}  // namespace ribbon
