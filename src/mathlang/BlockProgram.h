#pragma once

#include "ExpressionTree.h"

#include <array>
#include <cstddef>
#include <vector>

namespace mathlang {

// An expression compiled to a flat program that evaluates whole blocks of samples at once: each
// step runs one operation over up to 256 values, so the loops vectorise and the transcendental
// functions go through the vector kernels. Numbers agree with the tree's one-point evaluation up
// to the last bits of the vector functions; failures are NaN, never infinities.
class BlockProgram {
public:
  static constexpr std::size_t kBlock = 256;
  // One array per variable in the order of Variable; an unused variable may be nullptr.
  using Inputs = std::array<const double*, kVariableCount>;

  BlockProgram() = default;
  BlockProgram(const ExpressionTree& tree, int root);

  bool Uses(Variable variable) const { return (m_uses >> static_cast<int>(variable)) & 1u; }

  // out[i] for i < n, any n.
  void Evaluate(const Inputs& inputs, std::size_t n, double* out) const;
  // One point: variables in the order of Variable.
  double At(double x, double y = 0, double t = 0, double theta = 0, double r = 0) const;
  // One point with every variable, surfaces' ones included.
  double At(const std::array<double, kVariableCount>& values) const;

private:
  enum class SourceKind : std::uint8_t { Register, Variable, Constant };
  struct Source {
    SourceKind Kind = SourceKind::Constant;
    int Index = 0;
    double Value = 0;
  };
  struct Instruction {
    NodeKind Kind = NodeKind::Number;
    Function Fn = Function::Identity;
    Source A;
    Source B;
    int Target = 0;
  };

  void EvaluateBlock(const Inputs& inputs, std::size_t offset, std::size_t n, double* out, double* scratch) const;
  void Run(const Instruction& instruction, const Inputs& inputs, std::size_t offset, std::size_t n,
           double* scratch, double* out) const;

  std::vector<Instruction> m_code;
  int m_registers = 0;
  Source m_result{SourceKind::Constant, 0, 0};
  unsigned m_uses = 0;
};

}  // namespace mathlang
