#include "Typesetter.h"

#include "NodeShape.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mathx {

namespace {

using Kind = MathNode::Kind;
using BoxKind = LayoutBox::Kind;
using Role = LayoutBox::Role;

// Proportions of the picture, in ems of the current size.
constexpr double kThin = 0.17;
constexpr double kMedium = 0.22;
constexpr double kThick = 0.26;
constexpr double kScript = 0.70;        // exponents and root indices
constexpr double kFractionPart = 0.90;  // numerators and denominators
constexpr double kSmallest = 6.0;       // pixels: nothing gets smaller
constexpr double kAxis = 0.27;          // height of the fraction bar and of the minus sign

double Smaller(double size, double factor) { return std::max(kSmallest, size * factor); }
double RuleThickness(double size) { return std::max(1.0, size * 0.055); }

// Lays boxes side by side on one baseline and collects the caret's carets. A slot added with no
// height takes the height of the finished row.
class RowBuilder {
public:
  void Add(LayoutBox child) {
    child.x = m_box.width;
    m_box.width += child.width;
    m_box.ascent = std::max(m_box.ascent, child.ascent - child.y);
    m_box.descent = std::max(m_box.descent, child.descent + child.y);
    m_box.children.push_back(std::move(child));
  }
  void Space(double width) { m_box.width += width; }
  double Width() const { return m_box.width; }
  // A slot for a character position at the current end of the row.
  void Slot(int position) { Slot(position, m_box.width); }
  void Slot(int position, double x) {
    if (position >= 0) m_pending.push_back({position, x, -1, -1});
  }
  // The carets of a piece of syntax the picture does not show: before and after it, here.
  void Hidden(SourceRange mark) {
    if (!mark.Valid()) return;
    Slot(mark.begin);
    Slot(mark.end);
  }
  LayoutBox Finish(Role role = Role::None) {
    for (CaretSlot slot : m_pending) {
      slot.ascent = m_box.ascent;
      slot.descent = m_box.descent;
      m_box.carets.push_back(slot);
    }
    m_pending.clear();
    m_box.role = role;
    return std::move(m_box);
  }

private:
  LayoutBox m_box;
  std::vector<CaretSlot> m_pending;
};

QString RelationGlyph(const QString& op) {
  if (op == u"<=" || op == u"=<") return QString::fromUtf8("≤");
  if (op == u">=" || op == u"=>") return QString::fromUtf8("≥");
  if (op == u"<>") return QString::fromUtf8("≠");
  return op;
}

// A filled bar: a fraction bar, a radical's line, a table's lines. Placed by its centre line.
LayoutBox Bar(double x, double y, double width, double height, Role role, SourceRange source) {
  LayoutBox bar;
  bar.kind = BoxKind::Rule;
  bar.role = role;
  bar.x = x;
  bar.y = y;
  bar.width = width;
  bar.ascent = bar.descent = height / 2;
  bar.sourceBegin = source.begin;
  bar.sourceEnd = source.end;
  return bar;
}

// The height of a box without its content: what a bracket round it needs to know.
LayoutBox Extent(const LayoutBox& box) {
  LayoutBox extent;
  extent.ascent = box.ascent - box.y;
  extent.descent = box.descent + box.y;
  return extent;
}

}  // namespace

LayoutBox Typesetter::Layout(const MathNode& node) const { return Set(node, m_size); }

LayoutBox Typesetter::Set(const MathNode& node, double size) const {
  switch (node.kind) {
    case Kind::Number: case Kind::Variable: case Kind::Greek: case Kind::Word: case Kind::PlainText:
      return Leaf(node, size);
    case Kind::Call: return Call(node, size);
    case Kind::Group: return Group(node, size);
    case Kind::Binary: return NodeShape::IsQuotient(node) ? Quotient(node, size) : Binary(node, size);
    case Kind::Unary: return Unary(node, size);
    case Kind::Power: return Power(node, size);
    case Kind::Chain: return Chain(node, size);
    case Kind::Radical: return Radical(node, size);
    case Kind::Abs: return Abs(node, size);
    case Kind::Declare: return Declare(node, size);
    case Kind::Domain: return Domain(node, size);
    case Kind::PointTable: return Table(node, size);
    case Kind::Command: return Command(node, size);
    case Kind::Placeholder: return Placeholder(node, size);
    case Kind::TableRow: break;
  }
  return {};
}

LayoutBox Typesetter::Text(const QString& text, FontRole role, double size, int begin, int end,
                           bool verbatim) const {
  const QFontMetricsF& metrics = m_fonts.Metrics(role, size);
  LayoutBox box;
  box.kind = BoxKind::Text;
  box.text = text;
  box.font = role;
  box.size = size;
  box.width = m_fonts.Advance(role, size, text);
  // An italic letter leans into what follows; a little room keeps it off a bracket.
  if (role == FontRole::Italic) box.width += size * 0.05;
  box.ascent = metrics.ascent() * 0.85;
  box.descent = metrics.descent() * 0.85;
  box.sourceBegin = begin;
  box.sourceEnd = end;
  box.verbatim = verbatim;
  if (begin < 0) return box;
  if (verbatim) {
    // Advances summed character by character: text that is shown one for one has no ligatures
    // worth the cost of measuring every prefix.
    double x = 0;
    for (int i = 0; i < text.size(); ++i) {
      box.carets.push_back({begin + i, x, box.ascent, box.descent});
      x += m_fonts.Advance(role, size, QString(text[i]));
    }
    box.carets.push_back({begin + int(text.size()), box.width, box.ascent, box.descent});
  } else {
    box.carets.push_back({begin, 0, box.ascent, box.descent});
    box.carets.push_back({end, box.width, box.ascent, box.descent});
  }
  return box;
}

LayoutBox Typesetter::Operator(const QString& glyph, double size, SourceRange source, double spaceBefore,
                               double spaceAfter) const {
  RowBuilder row;
  row.Space(spaceBefore * size);
  LayoutBox text = Text(glyph, FontRole::Upright, size, source.begin, source.end, false);
  text.role = Role::Operator;
  if (!source.Valid()) text.carets.clear();
  // Some faces give a sign such as ≤ the room of a letter M round ink as narrow as <'s; such a
  // sign keeps only the side room that < has, so that relations look alike.
  const QRectF ink = m_fonts.Ink(FontRole::Upright, size, glyph);
  const double room = 0.06 * size;
  if (glyph.size() == 1 && ink.width() > 0 && ink.left() > 2 * room) {
    const double shift = ink.left() - room;
    LayoutBox trimmed;
    trimmed.width = ink.width() + 2 * room;
    trimmed.ascent = text.ascent;
    trimmed.descent = text.descent;
    trimmed.role = Role::Operator;
    for (CaretSlot& caret : text.carets) caret.x = caret.x > 0 ? trimmed.width : 0;
    trimmed.carets = std::move(text.carets);
    text.carets.clear();
    text.x = -shift;
    trimmed.children.push_back(std::move(text));
    text = std::move(trimmed);
  }
  row.Add(std::move(text));
  row.Space(spaceAfter * size);
  return row.Finish(Role::Operator);
}

LayoutBox Typesetter::Space(double width) const {
  LayoutBox box;
  box.width = width;
  return box;
}

LayoutBox Typesetter::Fence(QChar fence, const LayoutBox& content, double size, SourceRange source) const {
  const QFontMetricsF& metrics = m_fonts.Metrics(FontRole::Upright, size);
  const double textHeight = (metrics.ascent() + metrics.descent()) * 0.85;
  if (fence != u'|' && content.Height() <= textHeight * 1.08) {
    LayoutBox glyph = Text(QString(fence), FontRole::Upright, size, source.begin, source.end, false);
    glyph.carets.clear();
    return glyph;
  }
  // Taller content: a bracket drawn to its height.
  LayoutBox box;
  box.kind = BoxKind::Fence;
  box.fence = fence;
  box.size = size;
  box.thickness = std::max(1.0, size * (fence == u'|' ? 0.06 : 0.075));
  const double pad = size * 0.08;
  box.ascent = std::max(content.ascent + pad, metrics.ascent() * 0.8);
  box.descent = std::max(content.descent + pad, metrics.descent() * 0.8);
  box.width = size * (fence == u'|' ? 0.28 : 0.38) + box.Height() * 0.04;
  box.sourceBegin = source.begin;
  box.sourceEnd = source.end;
  return box;
}

LayoutBox Typesetter::Leaf(const MathNode& node, double size) const {
  switch (node.kind) {
    case Kind::Variable: return Text(node.text, FontRole::Italic, size, node.begin, node.end, true);
    case Kind::Number: return Text(node.text, FontRole::Upright, size, node.begin, node.end, true);
    case Kind::Greek: {
      const bool upright = node.text == QString::fromUtf8("π");
      return Text(node.text, upright ? FontRole::Upright : FontRole::Italic, size, node.begin, node.end, false);
    }
    case Kind::Word: return Text(node.text, FontRole::Upright, size, node.begin, node.end, false);
    default: return Text(node.text, FontRole::Upright, size, node.begin, node.end, true);
  }
}

LayoutBox Typesetter::Call(const MathNode& node, double size) const {
  RowBuilder row;
  const SourceRange name = node.marks.front();
  const bool common = node.text == u"log10";
  row.Add(Text(common ? QStringLiteral("log") : node.text, FontRole::Upright, size, name.begin, name.end, false));
  if (common) {
    LayoutBox base = Text("10", FontRole::Upright, Smaller(size, kScript), -1, -1, false);
    base.y = size * 0.25;
    row.Add(std::move(base));
  }
  const SourceRange open = node.marks[1];
  if (!open.Valid()) {
    // "sin x": the argument follows after a thin space.
    row.Space(kThin * size);
    row.Add(Set(node.children.front(), size));
    return row.Finish();
  }
  RowBuilder inner;
  for (size_t i = 0; i < node.children.size(); ++i) {
    if (i > 0) inner.Add(Operator(",", size, node.marks[1 + i], 0, kThin));
    inner.Add(Set(node.children[i], size));
  }
  LayoutBox content = inner.Finish();
  const LayoutBox extent = Extent(content);
  const SourceRange close = node.marks.back();
  row.Add(Fence(u'(', extent, size, {node.begin, node.end}));
  row.Slot(open.end);
  row.Add(std::move(content));
  if (close.Valid()) row.Slot(close.begin);
  row.Add(Fence(u')', extent, size, {node.begin, node.end}));
  row.Slot(close.Valid() ? close.end : node.end);
  return row.Finish();
}

LayoutBox Typesetter::Group(const MathNode& node, double size) const {
  RowBuilder row;
  const SourceRange open = node.marks[0];
  const SourceRange close = node.marks[1];
  if (node.hideBrackets) {
    row.Hidden(open);
    row.Add(Set(node.children.front(), size));
    row.Hidden(close);
    return row.Finish();
  }
  LayoutBox content = Set(node.children.front(), size);
  const LayoutBox extent = Extent(content);
  row.Slot(open.begin);
  row.Add(Fence(node.text[0], extent, size, {node.begin, node.end}));
  row.Slot(open.end);
  row.Add(std::move(content));
  if (close.Valid()) {
    row.Slot(close.begin);
    row.Add(Fence(node.text[1], extent, size, {node.begin, node.end}));
  }
  row.Slot(close.Valid() ? close.end : node.end);
  return row.Finish();
}

LayoutBox Typesetter::Binary(const MathNode& node, double size) const {
  RowBuilder row;
  row.Add(Set(node.children[0], size));
  for (size_t i = 1; i < node.children.size(); ++i) {
    const QString& op = node.ops[i - 1];
    const SourceRange mark = node.marks[i - 1];
    const MathNode& left = NodeShape::Rightmost(node.children[i - 1]);
    const MathNode& right = NodeShape::Leftmost(node.children[i]);
    if (op == u"+") row.Add(Operator("+", size, mark, kMedium, kMedium));
    else if (op == u"-") row.Add(Operator(QString::fromUtf8("−"), size, mark, kMedium, kMedium));
    else if (op == u"mod") row.Add(Operator("mod", size, mark, kThick, kThick));
    else if (op == u"\\") row.Add(Operator("\\", size, mark, kThin, kThin));
    else if (op == u"/") row.Add(Operator("/", size, mark, 0.05, 0.05));
    else if (op == u"*") {
      // A dot where two numbers would run together, a thin space elsewhere.
      if (right.kind == Kind::Number || (left.kind == Kind::Number && right.kind == Kind::Unary))
        row.Add(Operator(QString::fromUtf8("·"), size, mark, kThin * 0.7, kThin * 0.7));
      else {
        // The star itself is the thin space: the caret stands before or after it.
        row.Slot(mark.begin);
        row.Space(kThin * size);
        row.Slot(mark.end);
      }
    } else if ((left.kind == Kind::Number && right.kind == Kind::Number) ||
               ((right.kind == Kind::Call || right.kind == Kind::Word) && right.text != u"declare")) {
      // Side by side: a thin space keeps two numbers apart and sets a function name off.
      row.Space(kThin * size);
    }
    row.Add(Set(node.children[i], size));
  }
  return row.Finish();
}

LayoutBox Typesetter::Quotient(const MathNode& node, double size) const {
  // In an exponent a quotient stays on the line, as in print: e^(-x/2).
  const bool script = size < m_size * (kScript + 0.05);
  if (!script && NodeShape::IsCompact(node.children[0]) && NodeShape::IsCompact(node.children[1])) return Fraction(node, size);
  return Binary(node, size);
}

LayoutBox Typesetter::Fraction(const MathNode& node, double size) const {
  const double partSize = Smaller(size, kFractionPart);
  auto part = [&](const MathNode& child) {
    if (child.kind != Kind::Group || child.text != u"()") return Set(child, partSize);
    MathNode bare = child;
    bare.hideBrackets = true;
    return Set(bare, partSize);
  };
  LayoutBox numerator = part(node.children[0]);
  LayoutBox denominator = part(node.children[1]);
  const double thickness = RuleThickness(size);
  const double gap = size * 0.10;
  const double axis = kAxis * size;
  const double pad = size * 0.08;
  const double inner = std::max(numerator.width, denominator.width);

  LayoutBox box;
  box.width = inner + 2 * pad;
  numerator.role = Role::Numerator;
  numerator.x = pad + (inner - numerator.width) / 2;
  numerator.y = -(axis + thickness / 2 + gap + numerator.descent);
  denominator.role = Role::Denominator;
  denominator.x = pad + (inner - denominator.width) / 2;
  denominator.y = -axis + thickness / 2 + gap + denominator.ascent;
  LayoutBox bar = Bar(0, -axis, box.width, thickness, Role::FractionBar, {node.begin, node.end});
  box.ascent = -numerator.y + numerator.ascent;
  box.descent = denominator.y + denominator.descent;
  // The "/" stands between the parts: its carets go to the end of the numerator and the start
  // of the denominator; the fraction's own ends take the full height.
  const SourceRange slash = node.marks[0];
  box.carets.push_back({node.begin, 0, box.ascent, box.descent});
  box.carets.push_back({node.end, box.width, box.ascent, box.descent});
  box.carets.push_back({slash.begin, numerator.x + numerator.width, numerator.ascent - numerator.y, numerator.descent + numerator.y});
  box.carets.push_back({slash.end, denominator.x, denominator.ascent - denominator.y, denominator.descent + denominator.y});
  box.children.push_back(std::move(numerator));
  box.children.push_back(std::move(bar));
  box.children.push_back(std::move(denominator));
  return box;
}

LayoutBox Typesetter::Unary(const MathNode& node, double size) const {
  RowBuilder row;
  if (node.text == u"!") {
    row.Add(Set(node.children.front(), size));
    row.Add(Operator("!", size, node.marks[0], 0, 0));
    return row.Finish();
  }
  row.Add(Operator(node.text == u"-" ? QString::fromUtf8("−") : node.text, size, node.marks[0], 0, 0.03));
  row.Add(Set(node.children.front(), size));
  return row.Finish();
}

LayoutBox Typesetter::Power(const MathNode& node, double size) const {
  LayoutBox base = Set(node.children[0], size);
  LayoutBox exponent = Set(node.children[1], Smaller(size, kScript));
  base.role = Role::Base;
  exponent.role = Role::Exponent;
  const double raise = std::max(size * 0.42, base.ascent - exponent.ascent * 0.55);
  RowBuilder row;
  // No slots of its own for the "^": the base's end stands before it, the exponent's start after.
  row.Add(std::move(base));
  exponent.y = -raise;
  row.Add(std::move(exponent));
  return row.Finish();
}

LayoutBox Typesetter::Chain(const MathNode& node, double size) const {
  RowBuilder row;
  row.Add(Set(node.children[0], size));
  for (size_t i = 1; i < node.children.size(); ++i) {
    const QString& op = node.ops[i - 1];
    if (op == u";" || op == u",") row.Add(Operator(",", size, node.marks[i - 1], 0, kThick * 1.3));
    else if (op == u"and" || op == u"or") row.Add(Operator(op, size, node.marks[i - 1], kThick, kThick));
    else row.Add(Operator(RelationGlyph(op), size, node.marks[i - 1], kThick, kThick));
    row.Add(Set(node.children[i], size));
  }
  return row.Finish();
}

LayoutBox Typesetter::Radical(const MathNode& node, double size) const {
  LayoutBox radicand = Set(node.children[0], size);
  radicand.role = Role::Radicand;
  const double thickness = RuleThickness(size);
  const double gap = size * 0.12;
  const double signWidth = size * 0.55;
  const double pad = size * 0.08;

  LayoutBox box;
  double signX = 0;
  if (node.children.size() > 1) {
    // xroot(x, n): the index sits in the crook of the sign.
    LayoutBox index = Set(node.children[1], Smaller(size, 0.6));
    index.role = Role::RootIndex;
    index.y = -(radicand.ascent + gap) * 0.5 - index.descent;
    signX = std::max(0.0, index.width - signWidth * 0.45);
    box.ascent = index.ascent - index.y;
    box.children.push_back(std::move(index));
  }
  LayoutBox sign;
  sign.kind = BoxKind::RadicalSign;
  sign.x = signX;
  sign.ascent = radicand.ascent + gap + thickness;
  sign.descent = radicand.descent + size * 0.04;
  sign.width = signWidth;
  sign.thickness = thickness;
  sign.sourceBegin = node.begin;
  sign.sourceEnd = node.end;
  LayoutBox line = Bar(signX + signWidth, -(radicand.ascent + gap + thickness / 2), radicand.width + 2 * pad, thickness,
                       Role::None, {node.begin, node.end});
  radicand.x = signX + signWidth + pad;

  box.width = line.x + line.width;
  box.ascent = std::max(box.ascent, sign.ascent);
  box.descent = sign.descent;
  box.carets.push_back({node.begin, 0, box.ascent, box.descent});
  box.carets.push_back({node.end, box.width, box.ascent, box.descent});
  box.children.push_back(std::move(sign));
  box.children.push_back(std::move(line));
  box.children.push_back(std::move(radicand));
  return box;
}

LayoutBox Typesetter::Abs(const MathNode& node, double size) const {
  LayoutBox content = Set(node.children.front(), size);
  const LayoutBox extent = Extent(content);
  RowBuilder row;
  row.Slot(node.begin);
  row.Add(Fence(u'|', extent, size, {node.begin, node.end}));
  row.Space(size * 0.05);
  row.Add(std::move(content));
  row.Space(size * 0.05);
  row.Add(Fence(u'|', extent, size, {node.begin, node.end}));
  row.Slot(node.end);
  return row.Finish();
}

LayoutBox Typesetter::Declare(const MathNode& node, double size) const {
  RowBuilder row;
  row.Slot(node.begin);
  row.Add(Set(node.children[0], size));
  row.Add(Operator(",", size, node.marks[2], 0, kThick * 1.5));
  row.Add(Set(node.children[1], size));
  row.Slot(node.end);
  return row.Finish();
}

LayoutBox Typesetter::Domain(const MathNode& node, double size) const {
  static const char* const lower[] = {"<", "≤", "<", "≤"};
  static const char* const upper[] = {"<", "≤", "≤", "<"};
  const int bounds = node.text.toInt();
  RowBuilder row;
  row.Slot(node.begin);
  row.Add(Set(node.children[1], size));
  row.Add(Operator(QString::fromUtf8(lower[bounds]), size, {}, kThick, kThick));
  row.Add(Set(node.children[0], size));
  row.Add(Operator(QString::fromUtf8(upper[bounds]), size, {}, kThick, kThick));
  row.Add(Set(node.children[2], size));
  row.Slot(node.end);
  return row.Finish();
}

LayoutBox Typesetter::Table(const MathNode& node, double size) const {
  // Cells set first, then placed in two columns under the header.
  std::vector<std::array<LayoutBox, 2>> cells;
  TableGeometry g{{size * 0.8, size * 0.8}, size * 0.35, size * 0.12, std::max(1.0, size * 0.045)};
  for (const MathNode& row : node.children) {
    std::array<LayoutBox, 2> pair = {Set(row.children[0], size), Set(row.children[1], size)};
    for (size_t c = 0; c < 2; ++c) g.columns[c] = std::max(g.columns[c], pair[c].width);
    cells.push_back(std::move(pair));
  }
  double top = 0;  // the top of the next line, from the table's top
  std::vector<LayoutBox> lines;
  for (size_t r = 0; r < cells.size(); ++r) {
    lines.push_back(TableLine(node.children[r], std::move(cells[r]), g, r == 0 ? Role::TableHeader : Role::TableRow));
    lines.back().y = top + lines.back().ascent;
    top += lines.back().Height() + (r == 0 ? g.rule + g.padY : 0);
  }
  // The table's baseline is that of its first point (or of the header alone).
  const double baseline = lines.size() > 1 ? lines[1].y : lines[0].y;
  for (LayoutBox& line : lines) line.y -= baseline;
  LayoutBox table;
  table.width = g.Width();
  table.ascent = baseline;
  table.descent = top - baseline;
  TableCarets(node, lines, table);
  const SourceRange source{node.begin, node.end};
  const double underHeader = lines[0].y + lines[0].descent + g.padY / 2 + g.rule / 2;
  for (LayoutBox& line : lines) table.children.push_back(std::move(line));
  table.children.push_back(Bar(0, underHeader, table.width, g.rule, Role::TableRule, source));
  LayoutBox column = Bar(g.columns[0] + 2 * g.padX - g.rule / 2, 0, g.rule, 0, Role::TableRule, source);
  column.ascent = table.ascent, column.descent = table.descent;
  table.children.push_back(std::move(column));
  return table;
}

// One line of a point list: its two cells centred in their columns. The comma between them
// stands at the end of the first cell and before the second.
LayoutBox Typesetter::TableLine(const MathNode& row, std::array<LayoutBox, 2> cells, const TableGeometry& g, Role role) const {
  LayoutBox line;
  line.role = role;
  line.width = g.Width();
  for (const LayoutBox& cell : cells) {
    line.ascent = std::max(line.ascent, cell.ascent + g.padY);
    line.descent = std::max(line.descent, cell.descent + g.padY);
  }
  for (size_t c = 0; c < 2; ++c) {
    LayoutBox& cell = cells[c];
    cell.role = Role::TableCell;
    cell.x = g.padX + double(c) * (g.columns[0] + 2 * g.padX) + (g.columns[c] - cell.width) / 2;
    line.children.push_back(std::move(cell));
  }
  const LayoutBox& left = line.children[0];
  line.carets.push_back({row.marks[0].begin, left.x + left.width, line.ascent, line.descent});
  line.carets.push_back({row.marks[0].end, line.children[1].x, line.ascent, line.descent});
  return line;
}

// The brackets stand at the table's ends; each ";" at the end of the line before it and before
// the first cell of the line after it.
void Typesetter::TableCarets(const MathNode& node, const std::vector<LayoutBox>& lines, LayoutBox& table) const {
  const auto in = [](const LayoutBox& line, int position, double x) {
    return CaretSlot{position, x, line.ascent - line.y, line.descent + line.y};
  };
  table.carets.push_back({node.begin, 0, table.ascent, table.descent});
  table.carets.push_back(in(lines[0], node.marks.front().end, lines[0].children[0].x));
  for (size_t s = 1; s + 1 < node.marks.size(); ++s) {
    const LayoutBox& last = lines[s - 1].children[1];
    table.carets.push_back(in(lines[s - 1], node.marks[s].begin, last.x + last.width));
    table.carets.push_back(in(lines[s], node.marks[s].end, lines[s].children[0].x));
  }
  table.carets.push_back({node.end, table.width, table.ascent, table.descent});
}

LayoutBox Typesetter::Command(const MathNode& node, double size) const {
  const double textSize = Smaller(size, 0.85);
  LayoutBox text = Text(node.text, FontRole::Sans, textSize, -1, -1, false);
  const double padX = size * 0.35;
  const double padY = size * 0.12;
  LayoutBox frame;
  frame.kind = BoxKind::Frame;
  frame.role = Role::Command;
  frame.thickness = std::max(1.0, size * 0.05);
  text.x = padX;
  frame.width = text.width + 2 * padX;
  frame.ascent = text.ascent + padY;
  frame.descent = text.descent + padY;
  frame.sourceBegin = node.begin;
  frame.sourceEnd = node.end;
  frame.carets.push_back({node.begin, 0, frame.ascent, frame.descent});
  frame.carets.push_back({node.end, frame.width, frame.ascent, frame.descent});
  frame.children.push_back(std::move(text));
  return frame;
}

LayoutBox Typesetter::Placeholder(const MathNode& node, double size) const {
  LayoutBox box;
  box.kind = BoxKind::Placeholder;
  box.width = size * 0.55;
  box.ascent = size * 0.62;
  box.descent = size * 0.06;
  box.thickness = std::max(1.0, size * 0.05);
  box.carets.push_back({node.begin, size * 0.12, box.ascent, box.descent});
  return box;
}

}  // namespace mathx
