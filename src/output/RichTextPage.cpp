#include "RichTextPage.h"

#include "core/Twips.h"
#include "platform/DataFolder.h"
#include "project/RtfReader.h"

#include <QFile>
#include <QVBoxLayout>

namespace output {

RichTextPage::RichTextPage(const QString& pageName, const QString& boxName, const QString& file, QWidget* parent)
    : QWidget(parent) {
  setObjectName(pageName);
  m_box = new QTextBrowser(this);
  m_box->setObjectName(boxName);
  m_box->setFrameShape(QFrame::NoFrame);
  m_box->setOpenExternalLinks(true);
  // The box fills the page but for a margin of 120 twips all round, at every size.
  auto* layout = new QVBoxLayout(this);
  const int margin = core::Px(120);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->addWidget(m_box);
  // A missing file leaves the page empty.
  QFile rtf(platform::DataFile(file));
  if (rtf.open(QIODevice::ReadOnly)) project::RtfReader::Read(rtf.readAll(), *m_box->document());
}

}  // namespace output
