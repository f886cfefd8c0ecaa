#include "HelpWindow.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

namespace help {

namespace {

QToolButton* NavigationButton(QWidget* parent, const QString& name, QStyle::StandardPixmap icon, const QString& tip,
                              const QKeySequence& key) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setIcon(parent->style()->standardIcon(icon));
  button->setToolTip(tip + QStringLiteral(" (") + key.toString(QKeySequence::NativeText) + u')');
  button->setAccessibleName(tip);
  button->setShortcut(key);
  button->setEnabled(false);
  return button;
}

}  // namespace

HelpWindow::HelpWindow(const QString& manualFolder, const QString& pdf, platform::Desktop& desktop,
                       platform::MessageBoxes& boxes, QWidget* parent)
    : QWidget(parent, Qt::Window), m_index(manualFolder), m_pdfPath(pdf), m_desktop(desktop), m_boxes(boxes) {
  setObjectName(QStringLiteral("HelpWindow"));
  setWindowTitle(tr("Quillograph manual"));
  setMinimumSize(640, 420);
  resize(1000, 720);

  m_contents = new QListWidget;
  m_contents->setObjectName(QStringLiteral("lstContents"));
  m_contents->setAccessibleName(tr("Chapters"));
  for (const ManualIndex::Chapter& chapter : m_index.Chapters()) m_contents->addItem(chapter.Title);
  m_results = new QListWidget;
  m_results->setObjectName(QStringLiteral("lstResults"));
  m_results->setAccessibleName(tr("Chapters that hold the words searched for"));
  m_results->setWordWrap(true);
  auto* side = new QStackedWidget;
  side->addWidget(m_contents);
  side->addWidget(m_results);
  m_browser = new QTextBrowser;
  m_browser->setObjectName(QStringLiteral("txtManual"));
  m_browser->setAccessibleName(tr("Manual page"));
  m_browser->setOpenLinks(false);
  m_browser->setSearchPaths({manualFolder});

  auto* splitter = new QSplitter;
  splitter->addWidget(side);
  splitter->addWidget(m_browser);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({230, 770});
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->addWidget(BuildBar());
  layout->addWidget(splitter, 1);

  connect(m_contents, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0 && row < m_index.Chapters().size()) ShowChapter(m_index.Chapters()[row].File);
  });
  connect(m_results, &QListWidget::currentRowChanged, this, &HelpWindow::OpenResult);
  connect(m_results, &QListWidget::itemActivated, this, [this] { OpenResult(m_results->currentRow()); });
  connect(m_search, &QLineEdit::textChanged, this, [this, side](const QString& text) {
    side->setCurrentIndex(text.trimmed().isEmpty() ? 0 : 1);
  });
  connect(m_search, &QLineEdit::returnPressed, this, [this] { Search(m_search->text()); });
  connect(m_browser, &QTextBrowser::anchorClicked, this, &HelpWindow::LinkClicked);
  connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::SourceChanged);
  connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QToolButton::setEnabled);
  connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QToolButton::setEnabled);
  connect(m_back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
  connect(m_forward, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
  connect(m_pdf, &QPushButton::clicked, this, &HelpWindow::OpenPdf);
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, this, [this] {
    m_search->setFocus();
    m_search->selectAll();
  });
  auto* close = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(close, &QShortcut::activated, this, &QWidget::close);
}

QWidget* HelpWindow::BuildBar() {
  auto* bar = new QWidget;
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  m_back = NavigationButton(bar, QStringLiteral("btnBack"), QStyle::SP_ArrowBack, tr("Back"), QKeySequence::Back);
  m_forward = NavigationButton(bar, QStringLiteral("btnForward"), QStyle::SP_ArrowForward, tr("Forward"),
                               QKeySequence::Forward);
  m_search = new QLineEdit(bar);
  m_search->setObjectName(QStringLiteral("txtSearch"));
  m_search->setPlaceholderText(tr("Search the manual (Ctrl+F), then Enter"));
  m_search->setAccessibleName(tr("Search the manual"));
  m_search->setClearButtonEnabled(true);
  m_pdf = new QPushButton(tr("Open as &PDF"), bar);
  m_pdf->setObjectName(QStringLiteral("btnPdf"));
  m_pdf->setToolTip(tr("The whole manual as one PDF file, in the desktop's viewer"));
  row->addWidget(m_back);
  row->addWidget(m_forward);
  row->addWidget(m_search, 1);
  row->addWidget(m_pdf);
  return bar;
}

void HelpWindow::ShowChapter(const QString& file) {
  const QString name = file.section(u'#', 0, 0);
  const QString anchor = file.section(u'#', 1);
  QUrl url = QUrl::fromLocalFile(m_index.Folder() + u'/' + name);
  if (!anchor.isEmpty()) url.setFragment(anchor);
  if (!QFileInfo::exists(url.toLocalFile())) {
    m_boxes.Show(tr("The manual's page \"%1\" is missing: it is looked for in %2.").arg(name, m_index.Folder()),
                 platform::MessageBoxes::Buttons::Ok, platform::MessageBoxes::Icon::Exclamation, tr("Manual"));
    return;
  }
  if (m_browser->source() != url) m_browser->setSource(url);
}

void HelpWindow::ShowPage(const QString& path) {
  if (!QFileInfo::exists(path)) {
    m_boxes.Show(tr("The page \"%1\" is missing.").arg(path), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Exclamation, tr("Manual"));
    return;
  }
  m_browser->setSearchPaths({m_index.Folder(), QFileInfo(path).absolutePath()});
  m_browser->setSource(QUrl::fromLocalFile(path));
}

// The window's title and the contents follow the page, however it was reached.
void HelpWindow::SourceChanged(const QUrl& source) {
  const QString file = QFileInfo(source.toLocalFile()).fileName();
  const QString title = m_index.TitleOf(file);
  const QString heading = title.isEmpty() ? m_browser->documentTitle() : title;
  setWindowTitle(heading.isEmpty() ? tr("Quillograph manual") : tr("Quillograph manual – %1").arg(heading));
  const QSignalBlocker quiet(m_contents);
  m_contents->setCurrentRow(-1);
  for (int row = 0; row < m_index.Chapters().size(); ++row) {
    if (m_index.Chapters()[row].File == file) m_contents->setCurrentRow(row);
  }
  if (!m_query.isEmpty()) m_browser->find(m_query.section(u' ', 0, 0));
}

// Pages of the manual and of the program open here; anything else goes to the desktop.
void HelpWindow::LinkClicked(const QUrl& link) {
  const QUrl target = m_browser->source().resolved(link);
  if (target.isLocalFile() && target.toLocalFile().endsWith(QStringLiteral(".html"))) {
    m_browser->setSource(target);
    return;
  }
  if (target.isLocalFile() && target.toLocalFile().isEmpty()) {
    m_browser->scrollToAnchor(link.fragment());
    return;
  }
  if (!m_desktop.OpenAddress(target.toString())) {
    m_boxes.Show(tr("The desktop has no program to open %1.").arg(target.toString()), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Exclamation, tr("Manual"));
  }
}

void HelpWindow::Search(const QString& query) {
  m_query = query.simplified();
  m_results->clear();
  const QList<ManualIndex::Hit> hits = m_index.Search(m_query);
  for (const ManualIndex::Hit& hit : hits) {
    auto* item = new QListWidgetItem(hit.Title + u'\n' + hit.Snippet, m_results);
    item->setData(Qt::UserRole, hit.File);
  }
  if (hits.isEmpty()) {
    auto* none = new QListWidgetItem(tr("No chapter holds \"%1\".").arg(m_query), m_results);
    none->setFlags(Qt::NoItemFlags);
    return;
  }
  m_results->setCurrentRow(0);
}

void HelpWindow::OpenResult(int row) {
  const QListWidgetItem* item = m_results->item(row);
  if (item == nullptr || item->data(Qt::UserRole).toString().isEmpty()) return;
  const QUrl url = QUrl::fromLocalFile(m_index.Folder() + u'/' + item->data(Qt::UserRole).toString());
  if (m_browser->source() == url) {
    m_browser->moveCursor(QTextCursor::Start);
    m_browser->find(m_query.section(u' ', 0, 0));
  } else {
    m_browser->setSource(url);
  }
}

void HelpWindow::OpenPdf() {
  if (!QFileInfo::exists(m_pdfPath)) {
    m_boxes.Show(tr("The manual as a PDF file is missing: it is looked for at %1.").arg(m_pdfPath),
                 platform::MessageBoxes::Buttons::Ok, platform::MessageBoxes::Icon::Exclamation, tr("Manual"));
    return;
  }
  if (!m_desktop.OpenAddress(m_pdfPath)) {
    m_boxes.Show(tr("The desktop has no program that opens PDF files. The manual is at %1; this window shows the "
                    "same manual.").arg(m_pdfPath),
                 platform::MessageBoxes::Buttons::Ok, platform::MessageBoxes::Icon::Exclamation, tr("Manual"));
  }
}

}  // namespace help
