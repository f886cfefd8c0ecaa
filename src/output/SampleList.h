#pragma once

#include <QString>

#include <array>

namespace output {

// The samples that come with the program, in the order the samples page lists them: the tag
// names the project "Functions/<tag>.qlfn" and its picture "Functions/<tag>.jpg".
struct Sample {
  const char* Tag;
  const char* Title;
  const char* Description;
};

inline constexpr std::array<Sample, 24> kSamples{{
    {"Circle", ">>Circle", "Common Circle Function Sample"},
    {"Pikachu", ">>Pikachu", "Art of Pikachu character"},
    {"Damped Oscillation", ">>Damped Oscillation", "Damped Oscillation curve"},
    {"Flower", ">>Flower", "Polar Flower Function"},
    {"Gear Function", ">>Gear", "Gear Function"},
    {"Heart", ">>Heart Curve", "Heart Curve Function"},
    {"Heart Para 1", ">>Heart Curve", "Parametric Heart Curve Sample 1"},
    {"Heart Para 2", ">>Heart Curve", "Parametric Heart Curve Sample 2"},
    {"Heart Polar", ">>Heart Curve", "Polar Heart Curve Function"},
    {"Muscle", ">>Muscle", "Muscle Curve Functions"},
    {"Rainbow", ">>Rainbow", "Rainbow Functions"},
    {"Sine wave", ">>Sine wave", "Saine wave Functions"},
    {"Square Root", ">>Square root", "Square Root Functions"},
    {"Triangle", ">>Triangle", "Triangle Curve Functions"},
    {"Climbing Sine", ">>Climbing sine", "Sine curves"},
    {"Minions", ">>Minions: Kevin!", "Art of one of Minions cartoon characters: Kevin!"},
    {"Homer", ">>The Simpsons: Homer", "Art of one of The Simpsons cartoon characters: Homer"},
    {"Bear", ">>Bear", "Art of a cartoon Bear"},
    {"Frog", ">>Frog", "Art of a cartoonic frog"},
    {"3D_Heart_1", ">>Heart Shape 3D", "3D Heart Shape Sample 1"},
    {"3D_Heart_2", ">>Heart Shape 3D", "3D Heart Shape Sample 2"},
    {"8 Curve", ">>8 Equation", "Equation of \"8\" shaped curve"},
    {"8 Curve_Y", ">>8 Equation Y", "Equation of \"8\" shaped curve solved for y"},
    {"Batman", ">>Batman", "Batman logo curve"},
}};

}  // namespace output
