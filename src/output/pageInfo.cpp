#include "pageInfo.h"

#include "CaptionButton.h"

#include "core/Version.h"
#include "platform/DataFolder.h"
#include "ribbon/Icons.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace output {

pageInfo::pageInfo(platform::Desktop& desktop, QWidget* parent) : QWidget(parent), m_desktop(desktop) {
  setObjectName(QStringLiteral("pageInfo"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(40, 32, 40, 32);
  layout->setSpacing(14);
  auto* top = new QHBoxLayout;
  auto* picture = new QLabel(this);
  picture->setObjectName(QStringLiteral("imgLogo"));
  picture->setPixmap(ribbon::IconFor(QStringLiteral("quillograph")).pixmap(96, 96));
  top->addWidget(picture, 0, Qt::AlignTop);
  auto* words = new QVBoxLayout;
  auto* name = new QLabel(QStringLiteral("Quillograph"), this);
  name->setObjectName(QStringLiteral("lblName"));
  QFont big = name->font();
  big.setPointSizeF(big.pointSizeF() * 2.2);
  big.setBold(true);
  name->setFont(big);
  auto* owner = new QLabel(tr("Made by the Quillograph team, for students and teachers."), this);
  owner->setObjectName(QStringLiteral("lblOwner"));
  m_version = new QLabel(VersionText(), this);
  m_version->setObjectName(QStringLiteral("lblVersion"));
  m_version->setProperty("hint", true);
  auto* about = new QLabel(tr("Equations, points, inequalities, curves and surfaces, drawn exactly and fast."), this);
  about->setWordWrap(true);
  words->addWidget(name);
  words->addWidget(owner);
  words->addWidget(m_version);
  words->addSpacing(6);
  words->addWidget(about);
  top->addSpacing(16);
  top->addLayout(words, 1);
  layout->addLayout(top);

  m_buttons = new QWidget(this);
  auto* grid = new QGridLayout(m_buttons);
  grid->setContentsMargins(0, 16, 0, 0);
  grid->setSpacing(10);
  layout->addWidget(m_buttons);
  layout->addStretch();

  const auto open = [this](const char* page) {
    return [this, page] { Show(platform::DataFile(QStringLiteral("pages/") + QString::fromLatin1(page))); };
  };
  connect(AddButton("btnHelp", tr("About Quillograph"), tr("What it is and what it does"), "help-about"),
          &QPushButton::clicked, this, open("about.html"));
  connect(AddButton("btnTutorial", tr("Tutorial"), tr("The first steps, one at a time"), "applications-education"),
          &QPushButton::clicked, this, open("tutorial.html"));
  connect(AddButton("btnWebSite", tr("Manual"), tr("Everything, in the user's manual"), "help-contents"),
          &QPushButton::clicked, this, [this] { Show(QStringLiteral("index.html")); });
  connect(AddButton("btnFacebook", tr("Community"), tr("Where users and makers meet"), "system-users"),
          &QPushButton::clicked, this, open("contact.html"));
  connect(AddButton("btnContactUs", tr("Contact us"), tr("How to reach the people who make it"), "mail-message-new"),
          &QPushButton::clicked, this, [this] {
            if (ShowContact) ShowContact();
          });
}

// In the program's own manual window where there is one, else with the desktop's program.
void pageInfo::Show(const QString& page) {
  if (ShowHelp) return ShowHelp(page);
  m_desktop.OpenAddress(page == u"index.html" ? platform::DataFile(QStringLiteral("Help.pdf")) : page);
}

QString pageInfo::VersionText() {
  return QStringLiteral("Version: %1.%2.0.%3").arg(core::VersionMajor()).arg(core::VersionMinor()).arg(core::VersionRevision());
}

QPushButton* pageInfo::AddButton(const char* name, const QString& caption, const QString& description, const QString& icon) {
  auto* button = new CaptionButton(caption, description, ribbon::IconFor(icon), m_buttons);
  button->setObjectName(QString::fromLatin1(name));
  button->setMinimumWidth(260);
  auto* grid = static_cast<QGridLayout*>(m_buttons->layout());
  const int index = grid->count();
  grid->addWidget(button, index / 2, index % 2);
  return button;
}

QPushButton* pageInfo::Button(const QString& name) const { return findChild<QPushButton*>(name); }

}  // namespace output
