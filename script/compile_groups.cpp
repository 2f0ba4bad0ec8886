#include "script/compile_groups.h"

#include <array>
#include <vector>

#include "core/game.h"
#include "script/compile_common.h"

namespace {

template <int From, int To>
constexpr std::array<int, To - From + 1> Span() {
  std::array<int, To - From + 1> a{};
  for (int i = From; i <= To; ++i) a[i - From] = i;
  return a;
}

constexpr auto kLay = Span<1, 6>();
constexpr auto kLayIn = Span<2, 5>();
constexpr std::array kLayOut{1, 2, 5, 6};
constexpr auto kDontCome = Span<7, 12>();
constexpr auto kDontComeIn = Span<8, 11>();
constexpr std::array kDontComeOut{7, 8, 11, 12};
constexpr auto kDcOdds = Span<13, 18>();
constexpr auto kDcOddsIn = Span<14, 17>();
constexpr std::array kDcOddsOut{13, 14, 17, 18};
constexpr auto kCome = Span<19, 24>();
constexpr auto kComeIn = Span<20, 23>();
constexpr std::array kComeOut{19, 20, 23, 24};
constexpr auto kComeOdds = Span<25, 30>();
constexpr auto kComeOddsIn = Span<26, 29>();
constexpr std::array kComeOddsOut{25, 26, 29, 30};
constexpr auto kPlace = Span<31, 36>();
constexpr auto kPlaceIn = Span<32, 35>();
constexpr std::array kPlaceOut{31, 32, 35, 36};
constexpr auto kBuy = Span<37, 42>();
constexpr auto kBuyIn = Span<38, 41>();
constexpr std::array kBuyOut{37, 38, 41, 42};
constexpr std::array kBig{50, 51};
constexpr auto kHardways = Span<52, 55>();
constexpr auto kHops = Span<67, 83>();
constexpr auto kAllBets = Span<1, 85>();
constexpr auto kCheckStacks = Span<100, 199>();
constexpr auto kCheckStackNames = Span<800, 899>();

}  // namespace

std::span<const int> GroupMembers(int group) {
  switch (group) {
    case 4000:
      return kLay;
    case 4001:
      return kLayIn;
    case 4002:
      return kLayOut;
    case 4010:
      return kDontCome;
    case 4011:
      return kDontComeIn;
    case 4012:
      return kDontComeOut;
    case 4020:
      return kDcOdds;
    case 4021:
      return kDcOddsIn;
    case 4022:
      return kDcOddsOut;
    case 4030:
      return kCome;
    case 4031:
      return kComeIn;
    case 4032:
      return kComeOut;
    case 4040:
      return kComeOdds;
    case 4041:
      return kComeOddsIn;
    case 4042:
      return kComeOddsOut;
    case 4050:
      return kPlace;
    case 4051:
      return kPlaceIn;
    case 4052:
      return kPlaceOut;
    case 4060:
      return kBuy;
    case 4061:
      return kBuyIn;
    case 4062:
      return kBuyOut;
    case 4070:
      return kBig;
    case 4071:
      return kHardways;
    case 4072:
      return kHops;
    case 4100:
      return kAllBets;
    case 980:
      return kCheckStacks;
    case 990:
      return kCheckStackNames;
    default:
      return {};
  }
}

void ExpandGroups(Game& game) {
  auto& s = game.scriptCode.CompiledScript;
  std::vector<ScriptElement> out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size(); ++i) {
    const auto members = s[i].Kind == kVariable ? GroupMembers(Code(s[i].Value))
                                                : std::span<const int>{};
    if (members.empty()) {
      out.push_back(s[i]);
      continue;
    }
    // The organiser wrote the qualifiers right behind the group.
    const std::size_t last = SkipQualifiers(s, i + 1, s[i].Value >= 4000 ? 4 : 1);
    for (std::size_t m = 0; m < members.size(); ++m) {
      if (m > 0) out.push_back({kComma, 0});
      out.push_back({kVariable, static_cast<double>(members[m])});
      out.insert(out.end(), s.begin() + static_cast<std::ptrdiff_t>(i + 1),
                 s.begin() + static_cast<std::ptrdiff_t>(last));
    }
    i = last - 1;
  }
  s = std::move(out);
}
