#include "BackstagePages.h"

#include "core/Version.h"
#include "platform/DataFolder.h"
#include "project/RtfReader.h"

#include <QFile>
#include <QLabel>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace rows {

namespace {

QWidget* Page(const QString& title, const QString& text) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(32, 24, 32, 24);
  auto* heading = new QLabel(title, page);
  heading->setObjectName(QStringLiteral("BackstageHeading"));
  QFont font = heading->font();
  font.setPointSizeF(font.pointSizeF() * 2);
  heading->setFont(font);
  layout->addWidget(heading);
  auto* body = new QLabel(text, page);
  body->setWordWrap(true);
  layout->addWidget(body);
  layout->addStretch();
  return page;
}

// A page written in rich text beside the program.
QWidget* RichPage(const QString& title, const QString& file) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(32, 24, 32, 24);
  auto* heading = new QLabel(title, page);
  QFont font = heading->font();
  font.setPointSizeF(font.pointSizeF() * 2);
  heading->setFont(font);
  layout->addWidget(heading);
  auto* text = new QTextBrowser(page);
  text->setFrameShape(QFrame::NoFrame);
  QFile rtf(platform::DataFile(file));
  if (rtf.open(QIODevice::ReadOnly)) project::RtfReader::Read(rtf.readAll(), *text->document());
  layout->addWidget(text);
  return page;
}

}  // namespace

QWidget* BackstagePages::Info() {
  return Page(QStringLiteral("Quillograph"),
              QStringLiteral("Version: %1.%2\nGraphs of equations, points, inequalities, curves and surfaces.")
                  .arg(core::VersionMajor())
                  .arg(core::VersionMinor()));
}

QWidget* BackstagePages::SaveAsPicture() {
  return Page(QStringLiteral("Save as picture"),
              QStringLiteral("The plot as a picture: use the Picture tab of the ribbon for PNG, JPEG and BMP."));
}

QWidget* BackstagePages::Samples() {
  return Page(QStringLiteral("Samples"), QStringLiteral("Open a sample project from the Functions folder with Open."));
}

QWidget* BackstagePages::WhatIsNew() { return RichPage(QStringLiteral("What is new?"), QStringLiteral("What is new.rtf")); }

QWidget* BackstagePages::SupportUs() { return RichPage(QStringLiteral("Support Us"), QStringLiteral("Support Us.rtf")); }

}  // namespace rows
