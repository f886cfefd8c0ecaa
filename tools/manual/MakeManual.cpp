// quillograph-makemanual: turns the HTML manual of docs/manual into one printable PDF.
//
//   quillograph-makemanual --output Help.pdf --css manual.css --images DIR [--images DIR]...
//                          [--title T] [--subtitle S] [--version V] [--cover IMAGE]
//                          CHAPTER.html...
//
// The chapters are read in the order given and laid out as one A4 document: a title page, a table
// of contents with page numbers, then the chapters, each starting on a new page, with the
// chapter's name and the page number in a footer. Pictures named by <img src="..."> are looked up
// in the --images folders (the first that has the file wins); a missing picture is an error, so
// that a build never ships a manual with holes in it. Links to other chapters and to anchors make
// no sense on paper and become plain text; links to web addresses stay links.
//
// Only Qt Gui is used: QTextDocument lays the text out, QPdfWriter writes the pages.

#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextTable>
#include <QAbstractTextDocumentLayout>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

namespace {

// The look shared with the program: its accent colour and a quiet grey for page furniture.
const QColor kAccent(0x25, 0x63, 0xeb);
const QColor kInk(0x1f, 0x29, 0x37);
const QColor kMuted(0x6b, 0x72, 0x80);
const QColor kRule(0xd1, 0xd5, 0xdb);

// Page geometry, in millimetres.
constexpr double kMarginSide = 20.0;
constexpr double kMarginTop = 20.0;
constexpr double kMarginBottom = 24.0;  // the footer stands in it
constexpr double kFooterGap = 8.0;      // from the text's bottom edge to the footer's base line

// Rules that hold on paper only; the HTML pages in a browser don't need them.
const char* const kPrintCss = R"(
h1 { page-break-before: always; }
a { color: #2563eb; text-decoration: none; }
)";

struct Options {
  QString Output;
  QString Css;
  QString Title = QStringLiteral("Quillograph");
  QString Subtitle = QStringLiteral("User manual");
  QString Version;
  QString Cover;
  QStringList ImageFolders;
  QStringList Chapters;
};

void Fail(const QString& message) {
  std::fprintf(stderr, "quillograph-makemanual: %s\n", qPrintable(message));
}

void Usage() {
  std::fprintf(stderr,
               "Usage: quillograph-makemanual --output FILE.pdf --css FILE.css --images DIR [--images DIR]...\n"
               "                              [--title T] [--subtitle S] [--version V] [--cover IMAGE]\n"
               "                              CHAPTER.html...\n");
}

std::optional<Options> Parse(const QStringList& arguments) {
  Options options;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    const auto value = [&]() -> std::optional<QString> {
      if (i + 1 >= arguments.size()) {
        Fail(a + QStringLiteral(" wants a value"));
        return std::nullopt;
      }
      return arguments[++i];
    };
    std::optional<QString> v;
    if (a == u"--output") {
      if (!(v = value())) return std::nullopt;
      options.Output = *v;
    } else if (a == u"--css") {
      if (!(v = value())) return std::nullopt;
      options.Css = *v;
    } else if (a == u"--images") {
      if (!(v = value())) return std::nullopt;
      options.ImageFolders << *v;
    } else if (a == u"--title") {
      if (!(v = value())) return std::nullopt;
      options.Title = *v;
    } else if (a == u"--subtitle") {
      if (!(v = value())) return std::nullopt;
      options.Subtitle = *v;
    } else if (a == u"--version") {
      if (!(v = value())) return std::nullopt;
      options.Version = *v;
    } else if (a == u"--cover") {
      if (!(v = value())) return std::nullopt;
      options.Cover = *v;
    } else if (a == u"-h" || a == u"--help") {
      Usage();
      return std::nullopt;
    } else if (a.startsWith(u'-')) {
      Fail(QStringLiteral("unknown option ") + a);
      return std::nullopt;
    } else {
      options.Chapters << a;
    }
  }
  if (options.Output.isEmpty() || options.Chapters.isEmpty()) {
    Usage();
    return std::nullopt;
  }
  return options;
}

std::optional<QString> ReadText(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
    return std::nullopt;
  }
  return QString::fromUtf8(file.readAll());
}

// What stands between <body> and </body>, or the whole text when it has no body.
QString BodyOf(const QString& html) {
  static const QRegularExpression body(QStringLiteral("<body[^>]*>(.*)</body>"),
                                       QRegularExpression::DotMatchesEverythingOption |
                                           QRegularExpression::CaseInsensitiveOption);
  const auto match = body.match(html);
  return match.hasMatch() ? match.captured(1) : html;
}

// The navigation lines at the top of each chapter ("Previous", "Next") belong to the browser.
QString WithoutNavigation(const QString& html) {
  static const QRegularExpression nav(QStringLiteral("<p class=\"nav\">.*?</p>"),
                                      QRegularExpression::DotMatchesEverythingOption);
  QString out = html;
  return out.remove(nav);
}

// Links that lead to another chapter or to an anchor become plain text: paper can't follow them.
// Links with a scheme (https:, mailto:) stay.
QString PlainInternalLinks(QString html) {
  static const QRegularExpression link(QStringLiteral("<a\\s+href=\"([^\"]*)\"[^>]*>(.*?)</a>"),
                                       QRegularExpression::DotMatchesEverythingOption |
                                           QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression scheme(QStringLiteral("^[a-z][a-z0-9+.-]*:"),
                                         QRegularExpression::CaseInsensitiveOption);
  QString out;
  qsizetype from = 0;
  for (auto it = link.globalMatch(html); it.hasNext();) {
    const auto match = it.next();
    out += html.mid(from, match.capturedStart() - from);
    if (scheme.match(match.captured(1)).hasMatch()) out += match.captured(0);
    else out += QStringLiteral("<span class=\"xref\">") + match.captured(2) + QStringLiteral("</span>");
    from = match.capturedEnd();
  }
  out += html.mid(from);
  return out;
}

QStringList ImageNames(const QString& html) {
  static const QRegularExpression img(QStringLiteral("<img[^>]*\\ssrc=\"([^\"]+)\""),
                                      QRegularExpression::CaseInsensitiveOption);
  QStringList names;
  for (auto it = img.globalMatch(html); it.hasNext();) {
    const QString name = it.next().captured(1);
    if (!names.contains(name)) names << name;
  }
  return names;
}

std::optional<QImage> FindImage(const QString& name, const QStringList& folders) {
  for (const QString& folder : folders) {
    const QString path = folder + u'/' + name;
    if (!QFileInfo::exists(path)) continue;
    QImage image(path);
    if (image.isNull()) {
      Fail(QStringLiteral("cannot read the picture %1").arg(path));
      return std::nullopt;
    }
    return image;
  }
  Fail(QStringLiteral("no picture %1 in %2").arg(name, folders.join(QStringLiteral(", "))));
  return std::nullopt;
}

// The documents are laid out in the units of a screen of 96 dots an inch, in which the style
// sheet's lengths and the pictures' widths mean what they mean in a browser; the painter scales
// them to the PDF writer's resolution. Design metrics keep the letters' advances unrounded, so that
// the text sets as finely as the PDF can show it.
constexpr double kLayoutDpi = 96.0;

void Prepare(QTextDocument& doc, const QString& css, const QSizeF& pageSize) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPointSizeF(10.5);
  font.setHintingPreference(QFont::PreferNoHinting);
  doc.setDefaultFont(font);
  doc.setUseDesignMetrics(true);
  doc.setDocumentMargin(0);
  doc.setDefaultStyleSheet(css);
  doc.setPageSize(pageSize);
}

bool IsHeading(const QTextBlock& block, int deepest) {
  const int level = block.blockFormat().headingLevel();
  return level >= 1 && level <= deepest;
}

// Whether the block holds a picture and nothing else: a figure, which should stay with its
// caption.
bool IsFigure(const QTextBlock& block) {
  const QString text = block.text().trimmed();
  return !text.isEmpty() && text.size() <= 2 &&
         std::all_of(text.begin(), text.end(), [](QChar c) { return c == QChar::ObjectReplacementCharacter; });
}

// Lays the document out anew from a position to its end. After a change of one block's format the
// layout of its own accord redoes only a part, and the blocks further down may be left without
// lines; this pass puts them back.
void Relayout(QTextDocument& doc, int from = 0) {
  doc.markContentsDirty(from, doc.characterCount() - from);
  (void)doc.documentLayout()->documentSize();
}

void SetBreakBefore(QTextDocument& doc, const QTextBlock& block, bool breakBefore) {
  QTextBlockFormat format = block.blockFormat();
  format.setPageBreakPolicy(breakBefore ? QTextFormat::PageBreak_AlwaysBefore : QTextFormat::PageBreak_Auto);
  QTextCursor(block).setBlockFormat(format);
  Relayout(doc, block.position());
}

// The document is printed from the top of a fresh page anyway: a break before its first block
// would only leave that page empty.
void NoBreakBeforeFirst(QTextDocument& doc) {
  if (const QTextBlock first = doc.begin(); first.isValid()) SetBreakBefore(doc, first, false);
}

int PageOf(double y, double pageHeight) { return static_cast<int>(y / pageHeight); }

// A table shorter than this part of a page is kept on one page; a longer one may run on, with its
// header row repeated.
constexpr double kShortTable = 0.5;

// A line of an example set in <pre>: Qt makes each line a block of its own, which doesn't break.
bool IsPre(const QTextBlock& block) { return block.isValid() && block.blockFormat().nonBreakableLines(); }

QTextTable* TableOf(QTextDocument& doc, const QTextBlock& block) {
  QTextCursor cursor(&doc);
  cursor.setPosition(block.position());
  return cursor.currentTable();
}

// Headings, figures, examples and short tables keep together with what belongs to them: a heading
// with the first two lines after it (or with the whole of a short table after it), a figure with
// its caption, an example or a short table with itself and the sentence that leads to it, and a
// short paragraph with itself rather than leave one line alone. Where that would cross into the
// next page, the block starts the next page instead. One pass from the top suffices, as a break
// changes nothing above it.
void KeepTogether(QTextDocument& doc) {
  const double pageHeight = doc.pageSize().height();
  QAbstractTextDocumentLayout* layout = doc.documentLayout();
  const auto atPageTop = [pageHeight](double y) {
    const int page = PageOf(y + 1, pageHeight);
    return y - page * pageHeight < 2;
  };
  const auto isShort = [pageHeight](const QRectF& rect) { return rect.height() < pageHeight * kShortTable; };

  // A break goes before the headings that lead to the block as well, so that none is left
  // behind at the foot of a page.
  const auto breakBefore = [&](QTextBlock block) {
    const int page = PageOf(layout->blockBoundingRect(block).top() + 1, pageHeight);
    for (QTextBlock previous = block.previous(); previous.isValid() && IsHeading(previous, 4);
         previous = previous.previous()) {
      const QRectF rect = layout->blockBoundingRect(previous);
      if (PageOf(rect.top() + 1, pageHeight) != page || atPageTop(rect.top())) break;
      block = previous;
    }
    SetBreakBefore(doc, block, true);
  };

  for (auto it = doc.rootFrame()->begin(); !it.atEnd(); ++it) {
    if (QTextFrame* frame = it.currentFrame()) {
      auto* table = qobject_cast<QTextTable*>(frame);
      if (table == nullptr) continue;
      const QRectF rect = layout->frameBoundingRect(table);
      if (!isShort(rect) || atPageTop(rect.top())) continue;
      if (PageOf(rect.top() + 1, pageHeight) == PageOf(rect.bottom() - 1, pageHeight)) continue;
      // A lead-in ("... these keywords:") and the headings over it go along with the table.
      const QTextBlock before = doc.findBlock(table->firstPosition() - 1);
      if (before.isValid() && before.text().trimmed().endsWith(u':') && TableOf(doc, before) == nullptr &&
          !atPageTop(layout->blockBoundingRect(before).top())) {
        breakBefore(before);
        continue;
      }
      QTextTableFormat format = table->format();
      format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
      table->setFormat(format);
      Relayout(doc, table->firstPosition());
      continue;
    }
    const QTextBlock block = it.currentBlock();
    const bool heading = IsHeading(block, 4);
    if (IsPre(block) && !IsPre(block.previous())) {
      // A short example of lines (<pre>) stays whole, with the sentence that leads to it.
      QTextBlock last = block;
      while (IsPre(last.next())) last = last.next();
      const QRectF first = layout->blockBoundingRect(block);
      const QRectF end = layout->blockBoundingRect(last);
      if (end.bottom() - first.top() < pageHeight * kShortTable && !atPageTop(first.top()) &&
          PageOf(first.top() + 1, pageHeight) != PageOf(end.bottom() - 1, pageHeight)) {
        const QTextBlock before = block.previous();
        const bool leadIn = before.isValid() && before.text().trimmed().endsWith(u':') &&
                            TableOf(doc, before) == nullptr && !atPageTop(layout->blockBoundingRect(before).top());
        breakBefore(leadIn ? before : block);
      }
      continue;
    }
    if (!heading && !IsFigure(block)) {
      // No paragraph of a few lines leaves a single line behind on one page or the other.
      const QTextLayout* lines = block.layout();
      if (lines == nullptr || lines->lineCount() < 2 || lines->lineCount() > 5 || TableOf(doc, block) != nullptr) continue;
      const QRectF rect = layout->blockBoundingRect(block);
      const int page = PageOf(rect.top() + 1, pageHeight);
      int before = 0;
      for (int i = 0; i < lines->lineCount(); ++i) {
        if (PageOf(rect.top() + lines->lineAt(i).rect().bottom() - 1, pageHeight) == page) ++before;
      }
      const int after = lines->lineCount() - before;
      if (after > 0 && (before == 1 || after == 1) && !atPageTop(rect.top())) breakBefore(block);
      continue;
    }
    const QTextBlock next = block.next();
    if (!next.isValid()) continue;
    const QRectF here = layout->blockBoundingRect(block);
    if (atPageTop(here.top())) continue;
    double reach = 0;
    QTextTable* table = TableOf(doc, next);
    const QRectF tableRect = table != nullptr ? layout->frameBoundingRect(table) : QRectF();
    if (heading && table != nullptr && isShort(tableRect)) {
      reach = tableRect.bottom();
    } else {
      const QRectF there = layout->blockBoundingRect(next);
      const QTextLayout* lines = next.layout();
      reach = there.bottom();
      if (lines != nullptr && lines->lineCount() > 0) {
        const int keep = heading ? std::min(lines->lineCount(), 2) : 1;
        reach = there.top() + lines->lineAt(keep - 1).rect().bottom();
      }
    }
    if (PageOf(reach - 1, pageHeight) != PageOf(here.top() + 1, pageHeight)) breakBefore(block);
  }
}

struct Heading {
  int Level = 1;
  QString Text;
  int Page = 0;  // 0-based page of the body document
};

std::vector<Heading> HeadingsOf(QTextDocument& doc) {
  std::vector<Heading> headings;
  const double pageHeight = doc.pageSize().height();
  for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
    if (!IsHeading(block, 2)) continue;
    const QRectF rect = doc.documentLayout()->blockBoundingRect(block);
    headings.push_back({block.blockFormat().headingLevel(), block.text().simplified(), PageOf(rect.top() + 1, pageHeight)});
  }
  return headings;
}

QString Escaped(const QString& text) { return text.toHtmlEscaped(); }

QString ContentsHtml(const std::vector<Heading>& headings, int firstBodyPage) {
  QString html = QStringLiteral("<h1 class=\"contents\">Contents</h1>\n"
                                "<table class=\"toc\" width=\"100%\" cellspacing=\"0\" cellpadding=\"3\">\n");
  for (const Heading& h : headings) {
    const QString number = QString::number(firstBodyPage + h.Page);
    if (h.Level == 1) {
      html += QStringLiteral("<tr><td class=\"toc1\">%1</td><td class=\"toc1\" align=\"right\">%2</td></tr>\n")
                  .arg(Escaped(h.Text), number);
    } else {
      html += QStringLiteral("<tr><td class=\"toc2\">%1</td><td class=\"toc2\" align=\"right\">%2</td></tr>\n")
                  .arg(Escaped(h.Text), number);
    }
  }
  html += QStringLiteral("</table>\n");
  return html;
}

const char* const kContentsCss = R"(
h1.contents { font-size: 22pt; color: #2563eb; font-weight: bold; margin-bottom: 18px; }
td.toc1 { font-weight: bold; font-size: 11pt; color: #1e40af; padding-top: 12px; }
td.toc2 { font-size: 10pt; color: #374151; padding-left: 22px; }
)";

void DrawPage(QPainter& painter, QTextDocument& doc, int page, const QRectF& body, double scale) {
  const double pageHeight = doc.pageSize().height();
  painter.save();
  painter.translate(body.topLeft());
  painter.scale(scale, scale);
  painter.translate(0, -page * pageHeight);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = QRectF(0, page * pageHeight, doc.pageSize().width(), pageHeight);
  painter.setClipRect(context.clip);
  context.palette.setColor(QPalette::Text, kInk);
  doc.documentLayout()->draw(&painter, context);
  painter.restore();
}

void DrawFooter(QPainter& painter, const QRectF& body, double mm, const QString& left, int number) {
  painter.save();
  const double base = body.bottom() + kFooterGap * mm;
  painter.setPen(QPen(kRule, 0.25 * mm));
  painter.drawLine(QPointF(body.left(), base - 4.5 * mm), QPointF(body.right(), base - 4.5 * mm));
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPointSizeF(8);
  painter.setFont(font);
  painter.setPen(kMuted);
  const QRectF line(body.left(), base - 4 * mm, body.width(), 5 * mm);
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, left);
  painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, QString::number(number));
  painter.restore();
}

void DrawTitlePage(QPainter& painter, const QRectF& paper, double mm, const Options& options, const QImage& cover) {
  painter.save();
  // A band of the accent colour along the top, the title under it, the picture in the middle.
  painter.fillRect(QRectF(paper.left(), paper.top(), paper.width(), 14 * mm), kAccent);

  QFont title(QStringLiteral("DejaVu Sans"));
  title.setPointSizeF(40);
  title.setBold(true);
  painter.setFont(title);
  painter.setPen(kAccent);
  painter.drawText(QRectF(paper.left(), paper.top() + 40 * mm, paper.width(), 22 * mm), Qt::AlignCenter, options.Title);

  QFont subtitle(QStringLiteral("DejaVu Sans"));
  subtitle.setPointSizeF(20);
  painter.setFont(subtitle);
  painter.setPen(kInk);
  painter.drawText(QRectF(paper.left(), paper.top() + 64 * mm, paper.width(), 12 * mm), Qt::AlignCenter,
                   options.Subtitle);

  QFont line(QStringLiteral("DejaVu Sans"));
  line.setPointSizeF(11);
  painter.setFont(line);
  painter.setPen(kMuted);
  painter.drawText(QRectF(paper.left(), paper.top() + 78 * mm, paper.width(), 8 * mm), Qt::AlignCenter,
                   QStringLiteral("Graphs of equations, inequalities, curves and surfaces, for students and teachers"));

  if (!cover.isNull()) {
    const double side = 110 * mm;
    const QRectF target(paper.center().x() - side / 2, paper.top() + 100 * mm, side,
                        side * cover.height() / std::max(1, cover.width()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, cover);
  }

  if (!options.Version.isEmpty()) {
    painter.setFont(line);
    painter.setPen(kMuted);
    painter.drawText(QRectF(paper.left(), paper.bottom() - 32 * mm, paper.width(), 8 * mm), Qt::AlignCenter,
                     QStringLiteral("For Quillograph %1").arg(options.Version));
  }
  painter.fillRect(QRectF(paper.left(), paper.bottom() - 6 * mm, paper.width(), 6 * mm), kAccent);
  painter.restore();
}

}  // namespace

int main(int argc, char** argv) {
  // A build machine has no screen: draw off screen unless told otherwise.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);

  const std::optional<Options> parsed = Parse(QCoreApplication::arguments());
  if (!parsed) return 2;
  const Options& options = *parsed;

  QString css;
  if (!options.Css.isEmpty()) {
    const auto text = ReadText(options.Css);
    if (!text) return 1;
    css = *text;
  }
  css += QString::fromLatin1(kPrintCss);

  QString html;
  for (const QString& chapter : options.Chapters) {
    const auto text = ReadText(chapter);
    if (!text) return 1;
    html += PlainInternalLinks(WithoutNavigation(BodyOf(*text)));
    html += u'\n';
  }

  QPdfWriter writer(options.Output);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
  writer.setTitle(options.Title + QStringLiteral(" - ") + options.Subtitle);
  writer.setCreator(QStringLiteral("quillograph-makemanual"));

  const double mm = writer.resolution() / 25.4;
  const QRectF paper(QPointF(0, 0), QSizeF(writer.width(), writer.height()));
  const QRectF body(paper.left() + kMarginSide * mm, paper.top() + kMarginTop * mm,
                    paper.width() - 2 * kMarginSide * mm, paper.height() - (kMarginTop + kMarginBottom) * mm);

  const double scale = writer.resolution() / kLayoutDpi;
  const QSizeF pageSize = body.size() / scale;

  QTextDocument doc;
  Prepare(doc, css, pageSize);
  for (const QString& name : ImageNames(html)) {
    const auto image = FindImage(name, options.ImageFolders);
    if (!image) return 1;
    doc.addResource(QTextDocument::ImageResource, QUrl(name), *image);
  }
  doc.setHtml(html);
  doc.setPageSize(pageSize);

  // The first chapter follows the contents on a page of its own anyway: no empty page before it.
  NoBreakBeforeFirst(doc);
  KeepTogether(doc);
  const std::vector<Heading> headings = HeadingsOf(doc);

  // The contents take as many pages as they take; their page numbers don't change that.
  QTextDocument contents;
  Prepare(contents, css + QString::fromLatin1(kContentsCss), pageSize);
  contents.setHtml(ContentsHtml(headings, 0));
  const int contentsPages = contents.pageCount();
  const int firstBodyPage = 1 + contentsPages + 1;  // 1-based: the title page, then the contents
  contents.setHtml(ContentsHtml(headings, firstBodyPage));
  NoBreakBeforeFirst(contents);

  QImage cover;
  if (!options.Cover.isEmpty()) {
    cover = QImage(options.Cover);
    if (cover.isNull()) {
      Fail(QStringLiteral("cannot read the cover picture %1").arg(options.Cover));
      return 1;
    }
  }

  QPainter painter;
  if (!painter.begin(&writer)) {
    Fail(QStringLiteral("cannot write %1").arg(options.Output));
    return 1;
  }
  painter.setRenderHint(QPainter::Antialiasing);
  DrawTitlePage(painter, paper, mm, options, cover);

  int number = 1;
  for (int page = 0; page < contents.pageCount(); ++page) {
    writer.newPage();
    DrawPage(painter, contents, page, body, scale);
    DrawFooter(painter, body, mm, options.Title + QStringLiteral(" - ") + options.Subtitle, ++number);
  }
  const int pages = doc.pageCount();
  std::size_t chapter = 0;
  QString chapterName;
  for (int page = 0; page < pages; ++page) {
    while (chapter < headings.size() && headings[chapter].Page <= page) {
      if (headings[chapter].Level == 1) chapterName = headings[chapter].Text;
      ++chapter;
    }
    writer.newPage();
    DrawPage(painter, doc, page, body, scale);
    DrawFooter(painter, body, mm, chapterName, ++number);
  }
  if (!painter.end()) {
    Fail(QStringLiteral("cannot finish %1").arg(options.Output));
    return 1;
  }
  std::printf("quillograph-makemanual: %s, %d pages\n", qPrintable(options.Output), number);
  return 0;
}
