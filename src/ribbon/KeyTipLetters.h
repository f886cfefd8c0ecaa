#pragma once

#include <QString>
#include <QStringList>

namespace ribbon {

// The key tips of the controls of one level (a tab's controls, or the tabs), one for each caption
// in order, unique among themselves and apart from the tips already taken. A tip is the caption's
// first letter when that is free, else the next free letter of the caption, else the first free
// letter of the alphabet. Only when there are more captions than free letters are the tips two
// letters long, all of them, so that no tip is the start of another. Captions may carry mnemonic
// marks; accents are dropped ("Échelle" -> E). A caption with no tip left gets an empty one.
QStringList KeyTipLetters(const QStringList& captions, const QStringList& taken = {});

}  // namespace ribbon
