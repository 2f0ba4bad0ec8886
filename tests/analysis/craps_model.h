// An independent model of what each bet is worth, for the advantage tests.
//
// It knows the bets only as a player does: what a unit on each bet wins or
// loses when the dice show a pair, with the payoffs and the vig written out
// as fractions. From there it works by enumeration alone: the 36 pairs of
// one roll for the single-roll bets, an absorbing chain over the come-out
// and the six points (solved by Gaussian elimination) for the line bets,
// and a walk over the sets of points made for Fire.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <vector>

namespace model {

// The number type of the model: long double, whose 64-bit mantissa keeps
// the figures exact far below the tests' tolerance, fair dice or skewed.
using Q = long double;
inline bool IsZero(Q x) { return x == 0; }
inline double ToDouble(Q x) { return static_cast<double>(x); }
template <class N>
N Frac(long long n, long long d) {
  return static_cast<N>(n) / static_cast<N>(d);
}

// The figures of a bet as doubles.
struct Figures {
  double evPerRoll = 0, evPerDec = 0, rollsPerDec = 0, sdPerRoll = 0, sdPerDec = 0;
};

// What a hand of Fire came to: the chance of 0..6 points made, and its rolls.
struct FireModel {
  std::array<double, 7> made{};
  double rolls = 0;
};

// The model over a number type N (Q).
template <class N>
struct Craps {
  // The dice: the chance of each ordered pair, p[die1 - 1][die2 - 1].
  using Dice = std::array<std::array<N, 6>, 6>;
  static Dice FairDice() {
    Dice d;
    for (auto& row : d) row.fill(Frac<N>(1, 36));
    return d;
  }
  static N TotalChance(const Dice& dice, int total) {
    N p{};
    for (int i = 1; i <= 6; ++i)
      for (int j = 1; j <= 6; ++j)
        if (i + j == total) p += dice[i - 1][j - 1];
    return p;
  }

  // The house's rules that the figures answer to.
  struct Rules {
    N vig = Frac<N>(1, 20);
    bool buyVigUpFront = true;
    bool layVigUpFront = true;
    int bar = 12;
    std::array<N, 13> field{};  // by total
    Rules() {
      for (int t = 2; t <= 12; ++t) field[t] = (t >= 5 && t <= 8) ? N(-1) : N(1);
      field[2] = field[12] = 2;
    }
  };

  // Default payoffs, net win per unit.
  static N LayPays(int n) {
    return n == 4 || n == 10 ? Frac<N>(1, 2) : n == 5 || n == 9 ? Frac<N>(2, 3) : Frac<N>(5, 6);
  }
  static N TruePays(int n) {
    return n == 4 || n == 10 ? N(2) : n == 5 || n == 9 ? Frac<N>(3, 2) : Frac<N>(6, 5);
  }
  static N PlacePays(int n) {
    return n == 4 || n == 10 ? Frac<N>(9, 5) : n == 5 || n == 9 ? Frac<N>(7, 5) : Frac<N>(7, 6);
  }
  static N SingleNumberPays(int total) {
    return total == 2 || total == 12 ? N(30) : total == 7 ? N(4) : N(15);
  }

  // A unit on Lay n wins: the vig is 5 percent of the win. Paid up front the
  // unit is stake plus vig, so a win nets the stake's win less the vig.
  static N LayWin(const Rules& r, int n) {
    const N ratio = LayPays(n);
    if (!r.layVigUpFront) return ratio - r.vig * ratio;
    const N stake = N(1) / (N(1) + r.vig * ratio);
    return stake * ratio - (N(1) - stake);
  }
  // A unit on Buy n wins: the vig is 5 percent of the stake.
  static N BuyWin(const Rules& r, int n) {
    if (!r.buyVigUpFront) return TruePays(n) - r.vig;
    const N stake = N(1) / (N(1) + r.vig);
    return stake * TruePays(n) - (N(1) - stake);
  }

  // The result of a unit on a single-roll bet when the dice show d1 and d2: 0
  // when the roll leaves the bet up (or pushes it).
  static N SingleRoll(const Rules& r, int bet, int d1, int d2) {
    constexpr int kBox[6] = {4, 5, 6, 8, 9, 10};
    const int t = d1 + d2;
    const bool hard = d1 == d2;
    auto onNumber = [&](int n, N win) { return t == n ? win : t == 7 ? N(-1) : N(0); };
    auto againstNumber = [&](int n, N win) { return t == 7 ? win : t == n ? N(-1) : N(0); };
    if (bet >= 1 && bet <= 6) return againstNumber(kBox[bet - 1], LayWin(r, kBox[bet - 1]));
    if (bet >= 7 && bet <= 12) return againstNumber(kBox[bet - 7], 1);
    if (bet >= 13 && bet <= 18) return againstNumber(kBox[bet - 13], LayPays(kBox[bet - 13]));
    if (bet >= 19 && bet <= 24) return onNumber(kBox[bet - 19], 1);
    if (bet >= 25 && bet <= 30) return onNumber(kBox[bet - 25], TruePays(kBox[bet - 25]));
    if (bet >= 31 && bet <= 36) return onNumber(kBox[bet - 31], PlacePays(kBox[bet - 31]));
    if (bet >= 37 && bet <= 42) return onNumber(kBox[bet - 37], BuyWin(r, kBox[bet - 37]));
    const bool craps = t == 2 || t == 3 || t == 12;
    const bool natural = t == 7 || t == 11;
    // Come and Don't Come on their come-out roll.
    if (bet == 45) return natural ? N(1) : craps ? N(-1) : N(0);
    if (bet == 48) return natural ? N(-1) : craps && t != r.bar ? N(1) : N(0);
    if (bet == 49) return r.field[t];
    if (bet == 50 || bet == 51) return onNumber(bet == 50 ? 6 : 8, 1);  // Big 6, Big 8
    // The hardways 4, 6, 8, 10.
    if (bet >= 52 && bet <= 55) {
      const int n = 4 + 2 * (bet - 52);
      if (t == n && hard) return n == 4 || n == 10 ? N(7) : N(9);
      return t == n || t == 7 ? N(-1) : N(0);
    }
    // From here on the bets are decided by every roll.
    constexpr int kNumber[5] = {2, 3, 7, 11, 12};
    if (bet >= 56 && bet <= 60) return t == kNumber[bet - 56] ? SingleNumberPays(t) : N(-1);
    if (bet == 61) return craps ? N(7) : N(-1);
    // Half on craps at 7 to 1 (nets 7/2 - 1/2), half on eleven at 15 to 1.
    if (bet == 62) return craps ? N(3) : t == 11 ? N(7) : N(-1);
    if (bet == 63)  // a quarter on each of 2, 3, 11, 12
      return craps || t == 11 ? (SingleNumberPays(t) - 3) / 4 : N(-1);
    if (bet == 64)  // a fifth on each of 2, 3, 11, 12 and 7
      return craps || t == 11 || t == 7 ? (SingleNumberPays(t) - 4) / 5 : N(-1);
    if (bet == 65 || bet == 66) return (bet == 65 ? t > 7 : t < 7) ? N(1) : N(-1);
    if (bet == 84) {  // Midway: the hard 6 and 8 pay 2 to 1, the easy ones and 7 even money
      if (t == 6 || t == 8) return hard ? N(2) : N(1);
      return t == 7 ? N(1) : N(-1);
    }
    // The hop bets 67..83, each one combination of the dice in either order.
    constexpr int kHop[17][2] = {{1, 3}, {1, 4}, {1, 5}, {1, 6}, {2, 2}, {2, 3},
                                 {2, 4}, {2, 5}, {2, 6}, {3, 3}, {3, 4}, {3, 5},
                                 {3, 6}, {4, 4}, {4, 5}, {4, 6}, {5, 5}};
    const int* hop = kHop[bet - 67];
    const bool hit = (d1 == hop[0] && d2 == hop[1]) || (d1 == hop[1] && d2 == hop[0]);
    return hit ? (hop[0] == hop[1] ? N(30) : N(15)) : N(-1);
  }

  // An outcome of a decision: a unit's result and its chance.
  struct Outcome {
    N x{}, f{};
  };

  // The figures of a distribution of outcomes of one decision lasting
  // `rolls` rolls on average. Without `countZero` only the outcomes with a
  // result are decisions; with it every outcome is.
  static Figures FiguresOf(const std::vector<Outcome>& outcomes, N rolls, bool countZero) {
    N value{}, decided{};
    for (const Outcome& o : outcomes) {
      value += o.x * o.f;
      if (countZero || !IsZero(o.x)) decided += o.f;
    }
    Figures fig;
    if (IsZero(decided) || IsZero(rolls)) return fig;
    const N perDec = value / decided, perRoll = value / rolls;
    N varDec{}, varRoll{};
    for (const Outcome& o : outcomes) {
      if (!countZero && IsZero(o.x)) continue;
      const N share = o.f / decided;
      varDec += (o.x - perDec) * (o.x - perDec) * share;
      varRoll += (o.x - perRoll) * (o.x - perRoll) * share / rolls;
    }
    fig.evPerRoll = ToDouble(perRoll);
    fig.evPerDec = ToDouble(perDec);
    fig.rollsPerDec = ToDouble(rolls / decided);
    fig.sdPerDec = std::sqrt(ToDouble(varDec));
    fig.sdPerRoll = std::sqrt(ToDouble(varRoll));
    return fig;
  }

  // A single-roll bet: each of the 36 pairs is one outcome of one roll; the
  // spread per roll is that of a roll's result, rolls that decide nothing
  // included.
  static Figures SingleRollFigures(const Rules& r, const Dice& dice, int bet, bool countZero) {
    std::vector<Outcome> outcomes;
    for (int i = 1; i <= 6; ++i)
      for (int j = 1; j <= 6; ++j)
        outcomes.push_back({SingleRoll(r, bet, i, j), dice[i - 1][j - 1]});
    Figures fig = FiguresOf(outcomes, 1, countZero);
    fig.sdPerRoll = FiguresOf(outcomes, 1, true).sdPerDec;  // every roll an outcome
    return fig;
  }

  // Solves A x = b for a small square system of fractions.
  static std::vector<N> Solve(std::vector<std::vector<N>> a, std::vector<N> b) {
    const std::size_t n = b.size();
    for (std::size_t c = 0; c < n; ++c) {
      std::size_t pivot = c;
      while (IsZero(a[pivot][c])) ++pivot;
      std::swap(a[pivot], a[c]);
      std::swap(b[pivot], b[c]);
      for (std::size_t row = 0; row < n; ++row) {
        if (row == c || IsZero(a[row][c])) continue;
        const N k = a[row][c] / a[c][c];
        for (std::size_t col = c; col < n; ++col) a[row][col] -= k * a[c][col];
        b[row] -= k * b[c];
      }
    }
    for (std::size_t c = 0; c < n; ++c) b[c] = b[c] / a[c][c];
    return b;
  }

  // The line bets as an absorbing chain. Transient states: 0 the come-out,
  // 1..6 a point of 4, 5, 6, 8, 9, 10. Every roll from a state is one of the
  // 36 pairs; it leads to a state or ends the decision with a result.
  static Figures LineFigures(const Rules& r, const Dice& dice, int bet, bool countZero) {
    constexpr int kBox[6] = {4, 5, 6, 8, 9, 10};
    const bool dont = bet == 46 || bet == 47, odds = bet == 44 || bet == 47;
    auto pointState = [&](int t) {
      for (int i = 0; i < 6; ++i)
        if (kBox[i] == t) return i + 1;
      return 0;
    };
    constexpr std::size_t kStates = 7;
    std::vector<std::vector<N>> stay(kStates, std::vector<N>(kStates));
    std::vector<std::map<N, N>> ends(kStates);  // by state, the chance of each result
    for (std::size_t s = 0; s < kStates; ++s)
      for (int i = 1; i <= 6; ++i)
        for (int j = 1; j <= 6; ++j) {
          const int t = i + j;
          const N p = dice[i - 1][j - 1];
          if (s == 0) {
            const bool natural = t == 7 || t == 11;
            if (pointState(t) != 0)
              stay[0][static_cast<std::size_t>(pointState(t))] += p;
            else if (dont)
              ends[0][natural ? N(-1) : t == r.bar ? N(0) : N(1)] += p;
            else
              ends[0][natural ? N(1) : N(-1)] += p;
            continue;
          }
          const int n = kBox[s - 1];
          const N win = odds ? (dont ? LayPays(n) : TruePays(n)) : N(1);
          if (t != n && t != 7)
            stay[s][s] += p;
          else
            ends[s][(t == n) != dont ? win : N(-1)] += p;
        }
    // (I - stay) h = ends_k for each result k; (I - stay) e = 1 for the rolls.
    std::vector<std::vector<N>> a(kStates, std::vector<N>(kStates));
    for (std::size_t s = 0; s < kStates; ++s)
      for (std::size_t u = 0; u < kStates; ++u) a[s][u] = N(s == u ? 1 : 0) - stay[s][u];
    std::vector<N> start(kStates);
    if (!odds) {
      start[0] = 1;
    } else {  // a decision on a point: the points as the come-out sets them
      N any{};
      for (int t : kBox) any += TotalChance(dice, t);
      for (int i = 0; i < 6; ++i)
        start[static_cast<std::size_t>(i + 1)] = TotalChance(dice, kBox[i]) / any;
    }
    const std::vector<N> steps = Solve(a, std::vector<N>(kStates, N(1)));
    N rolls{};
    for (std::size_t s = 0; s < kStates; ++s) rolls += start[s] * steps[s];
    std::set<N> results;
    for (const auto& e : ends)
      for (const auto& [x, f] : e) results.insert(x);
    std::vector<Outcome> outcomes;
    for (const N x : results) {
      std::vector<N> b(kStates);
      for (std::size_t s = 0; s < kStates; ++s) b[s] = ends[s][x];
      const std::vector<N> h = Solve(a, b);
      N f{};
      for (std::size_t s = 0; s < kStates; ++s) f += start[s] * h[s];
      outcomes.push_back({x, f});
    }
    return FiguresOf(outcomes, rolls, countZero);
  }

  // Fire: a hand goes from come-out to point and back until a seven-out. The
  // chance of ending with each set of points made is worked set by set, from
  // the full set down (a hand's set only grows).
  static FireModel FireHand(const Dice& dice) {
    constexpr int kBox[6] = {4, 5, 6, 8, 9, 10};
    std::array<N, 13> p{};
    for (int t = 2; t <= 12; ++t) p[t] = TotalChance(dice, t);
    long double anyPoint = 0;
    for (int n : kBox) anyPoint += p[n];
    // From a come-out, the next point set is n with chance p(n) / anyPoint;
    // from point n the hand makes it with p(n) / (p(n) + p(7)), else ends.
    std::array<std::array<long double, 7>, 64> end{};  // end[S][k]: ends with k points
    for (int set = 63; set >= 0; --set) {
      long double again = 0;  // chance to come back to the same set
      std::array<long double, 7> here{};
      for (int i = 0; i < 6; ++i) {
        const long double next = p[kBox[i]] / anyPoint;
        const long double make = p[kBox[i]] / (p[kBox[i]] + p[7]);
        here[static_cast<std::size_t>(__builtin_popcount(set))] += next * (1 - make);
        if (set & (1 << i)) {
          again += next * make;
        } else {
          for (int k = 0; k <= 6; ++k) here[k] += next * make * end[set | (1 << i)][k];
        }
      }
      for (int k = 0; k <= 6; ++k) end[set][k] = here[k] / (1 - again);
    }
    FireModel fire;
    for (int k = 0; k <= 6; ++k) fire.made[k] = static_cast<double>(end[0][k]);
    // Rolls: a come-out rolls again with c = p(2, 3, 7, 11, 12), a point n
    // lasts e(n) = (1 + p(n) e) / (p(n) + p(7)) (made, back to a come-out,
    // or sevened out), so e = 1 + c e + sum p(n) e(n), solved for e.
    N rolls = 1, left = 1 - p[2] - p[3] - p[7] - p[11] - p[12];
    for (int n : kBox) {
      if (IsZero(p[n])) continue;
      const N made = p[n] / (p[n] + p[7]);
      rolls += made;
      left -= p[n] * made;
    }
    fire.rolls = ToDouble(rolls / left);
    return fire;
  }
};

}  // namespace model
