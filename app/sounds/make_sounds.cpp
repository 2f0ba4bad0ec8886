// ravelton-make-sounds FOLDER: writes the table's sound families into FOLDER
// as wave files (16-bit mono PCM). Each sound is synthesised from damped
// sinusoids and a little noise, with a fixed seed, so the files are the same
// on every build and no recording has to ship with the sources:
//   stack1.chp .. stack4.chp  a check laid on a bet (one to four clacks)
//   hard.dce, soft.dce        the dice tumbling to the back wall
//   Chips.win                 a cascade of checks, looped on a big win
//   bell.win                  a two-note chime for a winning bet
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 22050;  // samples per second
constexpr double kPeak = 28000.0;

using Samples = std::vector<double>;

// A fixed generator: the same noise on every build.
struct Noise {
  std::uint32_t state = 20261123u;
  double Next() {  // in [-1, 1)
    state = state * 1664525u + 1013904223u;
    return static_cast<double>(state >> 8) / 8388608.0 - 1.0;
  }
};

Samples Silence(double seconds) { return Samples(static_cast<std::size_t>(seconds * kRate), 0.0); }

// Adds a struck body at `at` seconds: partials (Hz) ringing down with
// `decay` seconds to 1/e, over a burst of noise `click` seconds long.
void Strike(Samples& s, double at, double gain, const std::vector<double>& partials, double decay,
            double click, Noise& noise) {
  const auto start = static_cast<std::size_t>(at * kRate);
  const auto length = static_cast<std::size_t>(decay * 6 * kRate);
  for (std::size_t i = 0; i < length && start + i < s.size(); ++i) {
    const double t = static_cast<double>(i) / kRate;
    double v = 0;
    for (std::size_t k = 0; k < partials.size(); ++k)
      v += std::sin(2 * std::numbers::pi * partials[k] * t) / static_cast<double>(k + 1);
    v *= std::exp(-t / decay);
    if (t < click) v += noise.Next() * (1.0 - t / click);
    s[start + i] += gain * v;
  }
}

// A one-pole low-pass: `amount` near 1 dulls the sound.
void Soften(Samples& s, double amount) {
  double y = 0;
  for (double& x : s) x = y = amount * y + (1 - amount) * x;
}

void Normalise(Samples& s, double loudness) {
  double peak = 1e-9;
  for (double x : s) peak = std::max(peak, std::abs(x));
  for (double& x : s) x *= loudness / peak;
}

void PutLe(std::ofstream& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.put(static_cast<char>((value >> (8 * i)) & 0xFF));
}

bool WriteWave(const std::string& path, const Samples& s) {
  const std::string temporary = path + ".tmp";
  std::ofstream out(temporary, std::ios::binary);
  const auto dataBytes = static_cast<std::uint32_t>(s.size() * 2);
  out.write("RIFF", 4);
  PutLe(out, 36 + dataBytes, 4);
  out.write("WAVEfmt ", 8);
  PutLe(out, 16, 4);            // the format chunk's size
  PutLe(out, 1, 2);             // PCM
  PutLe(out, 1, 2);             // mono
  PutLe(out, kRate, 4);
  PutLe(out, kRate * 2, 4);     // bytes per second
  PutLe(out, 2, 2);             // bytes per sample frame
  PutLe(out, 16, 2);            // bits per sample
  out.write("data", 4);
  PutLe(out, dataBytes, 4);
  for (double x : s)
    PutLe(out, static_cast<std::uint16_t>(static_cast<std::int16_t>(std::lround(x * kPeak))), 2);
  out.close();
  return out && std::rename(temporary.c_str(), path.c_str()) == 0;
}

// A clay check on a stack: a bright, short clack.
void Clack(Samples& s, double at, double gain, Noise& noise) {
  Strike(s, at, gain, {2950, 4370, 6120}, 0.012, 0.002, noise);
}

Samples Checks(int clacks, Noise& noise) {
  Samples s = Silence(0.12 + 0.07 * clacks);
  for (int i = 0; i < clacks; ++i) Clack(s, 0.005 + 0.065 * i, 1.0 - 0.15 * i, noise);
  Normalise(s, 0.7);
  return s;
}

// Two dice skidding over the felt, bouncing, then knocking the back wall.
Samples Dice(bool hard, Noise& noise) {
  Samples s = Silence(0.75);
  const double bounces[] = {0.0, 0.11, 0.2, 0.27, 0.33, 0.38, 0.45};
  for (double at : bounces) {
    Strike(s, at, 0.6 + 0.4 * noise.Next(), {1180, 1730, 2610}, 0.018, 0.004, noise);
    Strike(s, at + 0.013, 0.5, {1320, 1990}, 0.015, 0.003, noise);
  }
  Strike(s, 0.52, hard ? 1.6 : 0.9, {640, 1410, 2230}, 0.03, 0.006, noise);  // the wall
  Soften(s, hard ? 0.2 : 0.6);
  Normalise(s, hard ? 0.85 : 0.6);
  return s;
}

Samples Cascade(Noise& noise) {
  Samples s = Silence(1.4);
  for (int i = 0; i < 40; ++i) Clack(s, 0.03 * i + 0.01 * (noise.Next() + 1), 0.5 + 0.3 * noise.Next(), noise);
  Normalise(s, 0.7);
  return s;
}

Samples Chime(Noise& noise) {
  Samples s = Silence(1.1);
  Strike(s, 0.0, 1.0, {1318.5, 2637, 3955.5}, 0.18, 0.0, noise);   // E6
  Strike(s, 0.14, 1.0, {1568, 3136, 4704}, 0.22, 0.0, noise);      // G6
  Normalise(s, 0.6);
  return s;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: ravelton-make-sounds FOLDER\n");
    return 2;
  }
  const std::string folder = std::string(argv[1]) + "/";
  Noise noise;
  bool ok = true;
  for (int n = 1; n <= 4; ++n) ok &= WriteWave(folder + "stack" + std::to_string(n) + ".chp", Checks(n, noise));
  ok &= WriteWave(folder + "hard.dce", Dice(true, noise));
  ok &= WriteWave(folder + "soft.dce", Dice(false, noise));
  ok &= WriteWave(folder + "Chips.win", Cascade(noise));
  ok &= WriteWave(folder + "bell.win", Chime(noise));
  if (!ok) std::fprintf(stderr, "ravelton-make-sounds: cannot write the sounds into %s\n", folder.c_str());
  return ok ? 0 : 1;
}
