// The final check: every statement evaluated on types alone.
//
// Each statement is copied to WorkStatement and shrunk in place by the same
// sweeps the interpreter makes (functions, variables, signs, math, "&",
// comparisons and lists, Not, And, Or, Xor; bracket groups innermost first),
// but on kinds instead of values: an operand is a number, a string, a target
// or something that cannot be evaluated. A statement that passes cannot fail
// on a type when it runs. What is left must be a truth value in a condition,
// or an action with its proper arguments, or an assignment to targets.
#pragma once

struct Game;

// The check pass; false with game.msg and the statement's span on failure.
bool CompileCheck(Game& game);
