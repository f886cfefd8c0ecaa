#include "RowMenu.h"

#include "FunctionList.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Tag.h"
#include "core/TextFunctions.h"
#include "mathx/MthX.h"
#include "ribbon/MenuView.h"

#include <QMenu>

namespace rows {

RowMenu::RowMenu(ribbon::CommandBars& bars, FunctionList& rows)
    : Popup([](QMenu& menu, const QPoint& at) { menu.exec(at); }), m_bars(bars), m_rows(rows) {}

ribbon::CommandControl* RowMenu::Menu() const { return m_bars.FindByName(QStringLiteral("menuFunction")); }
ribbon::CommandControl* RowMenu::NoteMenu() const { return m_bars.FindByName(QStringLiteral("menuNote")); }

ribbon::CommandControl* RowMenu::Item(std::int32_t id) const {
  ribbon::CommandControl* menu = Menu();
  return menu ? menu->Find(id) : nullptr;
}

int RowMenu::Row() const { return static_cast<int>(core::NumericPrefix(m_tag)); }

void RowMenu::Prepare(int i) {
  m_rows.SetActiveRow(i);
  if (i < 0 || i > m_rows.HighestIndex()) return;
  const FunctionRow& row = m_rows.Row(i);
  const QStringList parts = core::Split(core::Tag(row.grpFunction), QStringLiteral(","));
  m_tag = QString::number(i);
  if (Menu() == nullptr) return;
  const QString text = row.mthFunction->Text();
  const bool note = !row.rchfunNote->isHidden();
  const bool isPoint = core::Left(text, 1) == u"[";
  const bool isCommand = core::Left(text, 7) == u"command";
  const bool declares = text.contains(QStringLiteral("declare"));
  const auto each = [this](std::initializer_list<std::int32_t> ids, auto&& apply) {
    for (std::int32_t id : ids) {
      if (ribbon::CommandControl* item = Item(id)) apply(*item);
    }
  };
  const auto visible = [&](std::initializer_list<std::int32_t> ids, bool shown) {
    each(ids, [shown](ribbon::CommandControl& item) { item.SetVisible(shown); });
  };
  const auto caption = [this](std::int32_t id, const char* words) {
    if (ribbon::CommandControl* item = Item(id)) item->SetCaption(QString::fromLatin1(words));
  };

  caption(1174, isPoint ? "Change Points" : !text.isEmpty() ? "Evaluate Points" : "Add Points");
  const bool plain = !(isPoint || isCommand || text.isEmpty() || note);
  visible({1130, 1132, 1133, 1172, 1173}, plain);
  const bool curve = !declares && (!isPoint || isCommand) && !text.isEmpty() && !note && !isCommand;
  visible({1172, 1173, 1132}, curve);
  if (isPoint && !isCommand) {
    caption(1162, "Point(s) is solution.");
    caption(1107, "Remove This Point");
  } else if (note) {
    // The row's own note: a note in another row says nothing of this one.
    caption(1107, "Remove This Note");
  } else {
    caption(1162, "Show Point(s).");
    caption(1107, "Remove This Function");
  }
  const bool shown = !(isCommand || text.isEmpty()) && !note;
  visible({1162, 1169}, shown);
  visible({1162}, (declares || isPoint) && !text.isEmpty() && !note);
  each({1135}, [note](ribbon::CommandControl& item) { item.SetChecked(note); });
  const auto flag = [&](std::int32_t id, int position) {
    core::TryStep([&] {
      const bool on = core::StrictToBoolean(core::At(parts, position));
      if (ribbon::CommandControl* item = Item(id)) item->SetChecked(on);
    });
  };
  flag(1130, 0), flag(1132, 1), flag(1133, 2), flag(1162, 3), flag(1169, 4);
  core::TryStep([&] {
    const QString mode = core::At(parts, 5);
    each({1172}, [&](ribbon::CommandControl& item) { item.SetChecked(core::NumericPrefix(mode) == 1); });
    each({1173}, [&](ribbon::CommandControl& item) { item.SetChecked(core::NumericPrefix(mode) == 2); });
  });
  const bool many = m_rows.HighestIndex() != 0;
  visible({1134, 1109, 1108}, many);
  visible({1108}, i != 0);
  visible({1109}, i != m_rows.HighestIndex());
  each({1109}, [this](ribbon::CommandControl& item) { item.SetBeginGroup(Item(1108) && !Item(1108)->Visible()); });
  visible({1174}, !(note || isCommand));
  // The note's font from the row's own menu too, where the row is a note.
  visible({1161}, note);
}

void RowMenu::btnMore_Click(int i, const QPoint& at) {
  Prepare(i);
  if (ribbon::CommandControl* menu = Menu()) {
    QMenu shown;
    ribbon::MenuView::Fill(shown, *menu, m_bars);
    Popup(shown, at);
  }
}

void RowMenu::ShowNoteMenu(int i, const QPoint& at) {
  m_tag = QString::number(i);
  if (ribbon::CommandControl* menu = NoteMenu()) {
    QMenu shown;
    ribbon::MenuView::Fill(shown, *menu, m_bars);
    Popup(shown, at);
  }
}

}  // namespace rows
