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
  return core::Replace(s, kEnds, QString());
}

}  // namespace expression
