#include "BlockProgram.h"

#include "ElementKernelsImpl.h"
#include "VectorMath.h"

#include "numeric/NumericKernel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mathlang {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

const double* Zeros() {
  static const std::array<double, BlockProgram::kBlock> zeros{};
  return zeros.data();
}

double LogOfE() { return std::log(numeric::kE); }

// The nodes under root, in evaluation order (children have lower indices than parents).
std::vector<bool> Reachable(const ExpressionTree& tree, int root) {
  std::vector<bool> reachable(static_cast<size_t>(root) + 1, false);
  reachable[static_cast<size_t>(root)] = true;
  for (int i = root; i >= 0; --i) {
    if (!reachable[static_cast<size_t>(i)]) continue;
    const Node& n = tree.At(i);
    if (n.A >= 0) reachable[static_cast<size_t>(n.A)] = true;
    if (n.B >= 0) reachable[static_cast<size_t>(n.B)] = true;
  }
  return reachable;
}

bool ScalesByConstant(NodeKind kind) { return kind == NodeKind::Multiply || kind == NodeKind::Divide; }

// The negations that a product or quotient with a constant takes over: (-a)/c is a/(-c), and
// (-a)*c is a*(-c), to the last bit (rounding is symmetric), so the negation needs no pass of its
// own. Only a negation with this one user, which the tree's parser makes.
std::vector<bool> AbsorbedNegations(const ExpressionTree& tree, int root, const std::vector<bool>& reachable) {
  std::vector<int> users(static_cast<size_t>(root) + 1, 0);
  for (int i = 0; i <= root; ++i) {
    if (!reachable[static_cast<size_t>(i)]) continue;
    const Node& n = tree.At(i);
    if (n.A >= 0) ++users[static_cast<size_t>(n.A)];
    if (n.B >= 0) ++users[static_cast<size_t>(n.B)];
  }
  const auto soleNegation = [&](int index) {
    return tree.At(index).Kind == NodeKind::Negate && users[static_cast<size_t>(index)] == 1;
  };
  std::vector<bool> absorbed(static_cast<size_t>(root) + 1, false);
  for (int i = 0; i <= root; ++i) {
    const Node& n = tree.At(i);
    if (!reachable[static_cast<size_t>(i)] || !ScalesByConstant(n.Kind)) continue;
    if (tree.At(n.B).Kind == NodeKind::Number && soleNegation(n.A)) absorbed[static_cast<size_t>(n.A)] = true;
    else if (tree.At(n.A).Kind == NodeKind::Number && soleNegation(n.B)) absorbed[static_cast<size_t>(n.B)] = true;
  }
  return absorbed;
}

}  // namespace

BlockProgram::BlockProgram(const ExpressionTree& tree, int root) {
  if (root < 0) {
    m_result = {SourceKind::Constant, 0, kNaN};
    return;
  }
  const std::vector<bool> reachable = Reachable(tree, root);
  const std::vector<bool> absorbed = AbsorbedNegations(tree, root, reachable);
  std::vector<Source> sources(static_cast<size_t>(root) + 1);
  std::vector<int> freeRegisters;
  const auto release = [&](const Source& s) {
    if (s.Kind == SourceKind::Register) freeRegisters.push_back(s.Index);
  };
  for (int i = 0; i <= root; ++i) {
    if (!reachable[static_cast<size_t>(i)]) continue;
    const Node& n = tree.At(i);
    Source& s = sources[static_cast<size_t>(i)];
    if (n.Kind == NodeKind::Number) {
      s = {SourceKind::Constant, 0, n.Number};
      continue;
    }
    if (n.Kind == NodeKind::Load) {
      s = n.Var == Variable::Zero ? Source{SourceKind::Constant, 0, 0}
                                  : Source{SourceKind::Variable, static_cast<int>(n.Var), 0};
      if (n.Var != Variable::Zero) m_uses |= 1u << static_cast<int>(n.Var);
      continue;
    }
    if (absorbed[static_cast<size_t>(i)]) {
      s = sources[static_cast<size_t>(n.A)];  // the user negates its constant instead
      continue;
    }
    Instruction instruction;
    instruction.Kind = n.Kind;
    instruction.Fn = n.Fn;
    if (n.A >= 0) instruction.A = sources[static_cast<size_t>(n.A)];
    if (n.B >= 0) instruction.B = sources[static_cast<size_t>(n.B)];
    if (n.A >= 0 && absorbed[static_cast<size_t>(n.A)]) instruction.B.Value = -instruction.B.Value;
    if (n.B >= 0 && absorbed[static_cast<size_t>(n.B)]) instruction.A.Value = -instruction.A.Value;
    release(instruction.A);
    release(instruction.B);
    if (freeRegisters.empty()) {
      instruction.Target = m_registers++;
    } else {
      instruction.Target = freeRegisters.back();
      freeRegisters.pop_back();
    }
    s = {SourceKind::Register, instruction.Target, 0};
    m_code.push_back(instruction);
  }
  m_result = sources[static_cast<size_t>(root)];
}

void BlockProgram::Evaluate(const Inputs& inputs, std::size_t n, double* out) const {
  thread_local std::vector<double> scratch;
  const size_t needed = static_cast<size_t>(m_registers) * kBlock;
  if (scratch.size() < needed) scratch.resize(needed);
  for (std::size_t offset = 0; offset < n; offset += kBlock) {
    EvaluateBlock(inputs, offset, std::min(kBlock, n - offset), out + offset, scratch.data());
  }
}

double BlockProgram::At(double x, double y, double t, double theta, double r) const {
  return At(std::array<double, kVariableCount>{x, y, t, theta, r});
}

double BlockProgram::At(const std::array<double, kVariableCount>& values) const {
  Inputs inputs{};
  for (std::size_t v = 0; v < values.size(); ++v) inputs[v] = &values[v];
  double out = 0;
  Evaluate(inputs, 1, &out);
  return out;
}

void BlockProgram::EvaluateBlock(const Inputs& inputs, std::size_t offset, std::size_t n, double* out,
                                 double* scratch) const {
  // The last instruction computes the result: it writes straight into out.
  for (size_t i = 0; i < m_code.size(); ++i) {
    const bool last = i + 1 == m_code.size();
    double* target = last ? out : scratch + static_cast<size_t>(m_code[i].Target) * kBlock;
    Run(m_code[i], inputs, offset, n, scratch, target);
  }
  switch (m_result.Kind) {
    case SourceKind::Constant: std::fill(out, out + n, m_result.Value); break;
    case SourceKind::Register: break;  // written by the last instruction
    case SourceKind::Variable: {
      const double* v = inputs[static_cast<size_t>(m_result.Index)];
      if (v) std::copy_n(v + offset, n, out);
      else std::fill(out, out + n, 0.0);
    }
  }
}

void BlockProgram::Run(const Instruction& in, const Inputs& inputs, std::size_t offset, std::size_t n,
                       double* scratch, double* out) const {
  const auto pointer = [&](const Source& s) -> const double* {
    switch (s.Kind) {
      case SourceKind::Register: return scratch + static_cast<size_t>(s.Index) * kBlock;
      case SourceKind::Variable: {
        const double* v = inputs[static_cast<size_t>(s.Index)];
        return v ? v + offset : Zeros();
      }
      default: return nullptr;
    }
  };
  const double* a = pointer(in.A);
  const double* b = pointer(in.B);
  const double ca = in.A.Value;
  const double cb = in.B.Value;
  const VectorKernels& k = Kernels();
  const ElementKernels& e = ChosenElementKernels();
  switch (in.Kind) {
    case NodeKind::Power:
      // Small whole exponents by multiplication, a half by the square root: the loops vectorise.
      if (a && !b && (cb == 2 || cb == 3 || cb == 4 || cb == 0.5)) return e.PowerBy(cb, a, out, n);
      return kernels::Apply(a, ca, b, cb, out, n, [](double x, double y) { return numeric::Power(x, y); });
    case NodeKind::Negate:
      if (!a) return std::fill(out, out + n, -ca);
      return e.Scale(a, -1.0, out, n);
    case NodeKind::Call: break;
    default: return e.Binary(in.Kind, a, ca, b, cb, out, n);
  }
  // Functions of one argument: a constant argument was folded, so a is an array here, unless
  // the function is a random number.
  if (!a) {
    for (std::size_t i = 0; i < n; ++i) out[i] = ApplyFunction(in.Fn, ca, cb);
    return;
  }
  switch (in.Fn) {
    // The vector kernels map what is not finite to NaN themselves.
    case Function::Sin: return k.Sin(a, out, n);
    case Function::Cos: return k.Cos(a, out, n);
    case Function::Exp: {
      // A power of the 15-digit e, as the program defines exp.
      static const double logE = LogOfE();
      return k.Exp(a, logE, out, n);
    }
    case Function::Ln: return k.Log(a, out, n);
    case Function::Tan: return k.Tan(a, out, n);
    case Function::Sqrt:
    case Function::Sqr:
    case Function::Abs:
    case Function::Int:
    case Function::Fix:
    case Function::Identity: return e.Simple(in.Fn, a, out, n);
    default:
      for (std::size_t i = 0; i < n; ++i) out[i] = ApplyFunction(in.Fn, a[i], b ? b[i] : cb);
      return;
  }
}

}  // namespace mathlang
