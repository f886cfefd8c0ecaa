#include "ExpressionNormaliser.h"

#include "SymbolFolding.h"

#include "core/TextFunctions.h"

#include <initializer_list>
#include <utility>

namespace expression {

namespace {

// Private markers; none may occur in user text and none reaches the result.
const QString kNegativePower = QStringLiteral("<!?>");  // a user's "^-"
const QString kEnds = QStringLiteral("<~>");            // start and end of the text
const QString kUserPower = QStringLiteral("```");       // a user's "^"
const QString kDegrees = QStringLiteral("&&&");         // becomes "deg"

using Replacement = std::pair<const char16_t*, const char16_t*>;

// Applies the replacements one after the other, each to the result of the one before.
QString ReplaceInOrder(QString text, std::initializer_list<Replacement> replacements) {
  for (const auto& [find, by] : replacements) {
    text = core::Replace(text, QString::fromUtf16(find), QString::fromUtf16(by));
  }
  return text;
}

// Step 9 puts a star before every bracket. A name of the token table has it taken away again, or
// moved behind the name where the tests pin that; but a square root after a factor keeps the
// star behind it ("2sqrt*(2)"), and the engine reads a product with a function that has no
// argument, and fails. For the square roots the star goes back in front, where the factor
// before it needs one, and the call is whole again. A name that ends a longer word is someone
// else's.
const char16_t* const kCallsToMend[] = {u"sqrt", u"sqr"};

bool IsAsciiLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

QString MendCalls(QString s) {
  for (const char16_t* name : kCallsToMend) {
    const QString broken = QString::fromUtf16(name) + QStringLiteral("*(");
    for (qsizetype at = s.indexOf(broken); at >= 0; at = s.indexOf(broken, at + 1)) {
      const QChar before = at > 0 ? s[at - 1] : QChar();
      // x and pi are the atoms of the chain; other letters make a word with the name.
      const bool atom = before == u'x' || QStringView(s).left(at).endsWith(u"pi");
      if (IsAsciiLetter(before) && !atom) continue;
      s.remove(at + broken.size() - 2, 1);
      const bool factor = atom || before.isDigit() || before == u')' || before == u'.';
      if (factor) s.insert(at, u'*');
    }
  }
  return s;
}

}  // namespace

QString NormaliseExpression(const core::FunctionTokenTable& tokens, const QString& input) {
  QString s = core::Replace(input, QStringLiteral("^-"), kNegativePower);
  s = core::Replace(s, QStringLiteral(" "), QString());
  s = kEnds + s + kEnds;
  s = s.toLower();
  s = FoldTokens(tokens, s);
  s = core::Replace(s, QStringLiteral("^"), kUserPower);
  // A "^" after every atom (x, pi, a closing bracket): a digit behind it is then an exponent
  // ("x2" is x^2), and the marks before operators are taken away again below.
  s = ReplaceInOrder(s, {{u"x", u"*x^"}, {u"pi", u"*pi^"}, {u"(", u"*("}, {u")", u")^"},
                         {u"***", u"*"}, {u"**", u"*"}, {u"^^", u"^"}, {u"x^(", u"x*("},
                         // The text is lower case by now; these stay in the chain regardless.
                         {u"E*", u"E"}, {u"*E", u"E"},
                         {u"^-", u"-"}});
  s = core::Replace(s, kNegativePower, QStringLiteral("^-"));
  s = ReplaceInOrder(s, {{u"**", u"*"},
                         {u"^=", u"="}, {u"=*", u"="}, {u"^<", u"<"}, {u"<*", u"<"},
                         {u"^>", u">"}, {u">*", u">"}, {u"^+", u"+"}, {u"^/", u"/"},
                         {u"^\\", u"\\"}, {u"^)", u")"},
                         {u"(*", u"("}, {u"+*", u"+"}, {u"-*", u"-"}, {u"/*", u"/"}, {u"\\*", u"\\"},
                         {u"^*", u"*"}});
  s = core::Replace(s, kUserPower, QStringLiteral("^"));
  s = ReplaceInOrder(s, {{u"^*", u"^"}, {u"^^", u"^"}});
  s = core::Replace(s, kDegrees, QStringLiteral("deg"));
  s = ReplaceInOrder(s, {{u"^;", u";"}, {u";*", u";"}, {u",*", u","}, {u"x^,", u"x,"},
                         {u"pi^]", u"pi]"}, {u"[*x", u"[x"}});
  s = UnfoldTokens(tokens, s, true);
  s = UnfoldTokens(tokens, s, false);
  s = MendCalls(s);
  return core::Replace(s, kEnds, QString());
}

}  // namespace expression
