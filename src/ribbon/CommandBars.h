#pragma once

#include "CommandControl.h"

#include <QObject>
#include <QString>

#include <memory>

namespace ribbon {

// The command bars of one form: the tree of its controls as the design file lays them out, found
// by command id, and the one signal through which every command of the form is executed. The
// ribbon, the menu bars and the context menus are views of it.
class CommandBars : public QObject {
  Q_OBJECT

public:
  CommandBars();

  // Replaces every control with those of the design file; a missing or broken file leaves the
  // bars empty and returns false (the form goes on without them).
  bool LoadDesignFile(const QString& path);
  // The same from the file's text.
  bool LoadDesign(const QByteArray& text);

  // The root of the tree: the tabs of a ribbon, or the menus of a menu bar.
  CommandControl& Root() { return *m_root; }
  // The first control with the id, depth first; nullptr when there is none.
  CommandControl* FindControl(std::int32_t id) { return m_root->Find(id); }
  CommandControl* FindByName(const QString& name) { return m_root->FindByName(name); }

  // Fires a control's command, as a click on its view does.
  void Execute(CommandControl& control) { emit Executed(control); }

signals:
  void Executed(ribbon::CommandControl& control);
  // The tree was replaced: views build themselves again.
  void Reloaded();

private:
  std::unique_ptr<CommandControl> m_root;
};

}  // namespace ribbon
