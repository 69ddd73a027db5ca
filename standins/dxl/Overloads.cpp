#include "standins/dxl/Overloads.h"

#include <array>
#include <optional>

#include "standins/dxl/CallNodes.h"
#include "standins/dxl/Nodes.h"

namespace kestrune::dxl {

namespace {

struct Matched {
  std::vector<const Node*> nodes;
  std::vector<Type> types;
};

Candidate Typed(Type type, const Node* node) {
  return {type, node, nullptr};
}

/// The reading of an argument that a parameter takes; no node if there is none.
Candidate Fit(Checking& checking, const Meaning& argument, const Parameter& parameter) {
  for (const Candidate& candidate : argument.candidates) {
    const bool is_value = candidate.type != kNull && candidate.type != kVoid && candidate.type != kAny;
    const bool fits = candidate.type == parameter.type || (parameter.type == kAny && is_value);
    if (fits && (candidate.place || !parameter.by_reference)) return candidate;
  }
  if (parameter.by_reference) return {};
  return Typed(parameter.type, ValueOf(checking, argument, parameter.type));
}

std::optional<Matched> Match(Checking& checking, const std::vector<Parameter>& parameters,
                             std::span<const Meaning> arguments) {
  if (parameters.size() != arguments.size()) return std::nullopt;
  Matched matched;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const Candidate fit = Fit(checking, arguments[i], parameters[i]);
    if (!fit.node) return std::nullopt;
    matched.nodes.push_back(parameters[i].by_reference ? fit.place : fit.node);
    matched.types.push_back(fit.type);
  }
  return matched;
}

const Problem* ProblemIn(std::span<const Meaning> arguments) {
  for (const Meaning& argument : arguments) {
    if (!argument) return &argument.failure;
  }
  return nullptr;
}

void AddFunctions(Checking& checking, Position at, const Text& name, std::span<const Meaning> arguments,
                  Meaning& meaning) {
  for (const Function* function : checking.names.FindFunctions(name)) {
    if (meaning.Of(function->result)) continue;
    if (auto matched = Match(checking, function->parameters, arguments)) {
      const Node* call = checking.code.Make<FunctionNode>(at, *function, std::move(matched->nodes));
      meaning.candidates.push_back(Typed(function->result, call));
    }
  }
}

void AddPerms(Checking& checking, Position at, TextView name, std::span<const Meaning> arguments,
              Meaning& meaning) {
  for (const PermEntry* perm : checking.perms.Find(name)) {
    if (meaning.Of(perm->result)) continue;
    if (auto matched = Match(checking, perm->parameters, arguments)) {
      const Node* call =
          checking.code.Make<PermNode>(at, *perm, std::move(matched->nodes), std::move(matched->types));
      meaning.candidates.push_back(Typed(perm->result, call));
    }
  }
}

/// Handles of one type with an operator that the type does not have: what DOORS would compare is not known.
Text ProblemOf(Checking& checking, TextView word, const Meaning& left, const Meaning& right) {
  for (const Meaning* side : {&left, &right}) {
    for (const Candidate& candidate : side->candidates) {
      if (!IsHandle(candidate.type) || !ValueOf(checking, left, candidate.type) ||
          !ValueOf(checking, right, candidate.type))
        continue;
      return NotSupported(Text(word).append(u" of type ").append(checking.perms.NameOf(candidate.type)));
    }
  }
  return u"incorrect arguments for (" + Text(word) + u")";
}

}  // namespace

bool IsFunction(const Checking& checking, const Text& name) {
  return !checking.perms.Find(name).empty() || !checking.names.FindFunctions(name).empty();
}

const Node* ValueOf(Checking& checking, const Meaning& meaning, Type type) {
  if (const Candidate* exact = meaning.Of(type)) return exact->node;
  const bool takes_null = type.id >= kBool.id && !type.is_array;
  const Candidate* null = takes_null ? meaning.Of(kNull) : nullptr;
  return null ? checking.code.Make<LiteralNode>(null->node->at, Value::Default(type)) : nullptr;
}

Meaning ResolvePerm(Checking& checking, Position at, TextView name, std::span<const Meaning> arguments,
                    Text problem) {
  if (const Problem* inner = ProblemIn(arguments)) return *inner;
  Meaning meaning(Problem{at, std::move(problem)});
  AddPerms(checking, at, name, arguments, meaning);
  return meaning;
}

Meaning ResolveCall(Checking& checking, Position at, const Text& name, std::span<const Meaning> arguments) {
  if (!IsFunction(checking, name)) return Problem{at, UnknownWord(name)};
  if (const Problem* inner = ProblemIn(arguments)) return *inner;
  Meaning meaning(Problem{at, u"incorrect arguments for function (" + name + u")"});
  AddFunctions(checking, at, name, arguments, meaning);
  AddPerms(checking, at, name, arguments, meaning);
  return meaning;
}

Meaning ResolveOperator(Checking& checking, Position at, TextView word, const Meaning& left,
                        const Meaning& right) {
  const bool joins = word == u"..";
  const std::array<Meaning, 2> sides = {left, right};
  if (const Problem* inner = ProblemIn(sides)) return *inner;
  Meaning meaning(
      Problem{at, joins ? u"incorrectly concatenated tokens" : ProblemOf(checking, word, left, right)});
  for (const BinaryOperator& row : BinaryOperators()) {
    if (row.word != word || meaning.Of(row.result)) continue;
    const Node* a = ValueOf(checking, left, row.left);
    const Node* b = a ? ValueOf(checking, right, row.right) : nullptr;
    if (b)
      meaning.candidates.push_back(
          Typed(row.result, checking.code.Make<BinaryNode>(at, row.run, row.result, a, b)));
  }
  AddPerms(checking, at, word, sides, meaning);
  return meaning;
}

Meaning ResolvePrefix(Checking& checking, Position at, TextView word, const Meaning& operand) {
  if (!operand) return operand;
  Meaning meaning(Problem{at, u"incorrect arguments for (" + Text(word) + u")"});
  for (const UnaryOperator& row : UnaryOperators()) {
    const Candidate* candidate = row.word == word ? operand.Of(row.operand) : nullptr;
    if (candidate)
      meaning.candidates.push_back(
          Typed(row.operand, checking.code.Make<UnaryNode>(at, row.run, candidate->node)));
  }
  return meaning;
}

}  // namespace kestrune::dxl
