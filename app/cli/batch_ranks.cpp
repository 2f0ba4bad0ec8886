#include "app/cli/batch_ranks.h"

#include <algorithm>
#include <cstdlib>

#ifdef RAVELTON_MPI
#include <mpi.h>
#endif

namespace {

bool ByIndex(const SessionResult& a, const SessionResult& b) { return a.index < b.index; }

#ifdef RAVELTON_MPI
// A session result as plain integers, so ranks exchange one array of them.
void Pack(const SessionResult& r, std::vector<std::int64_t>& out) {
  out.push_back(r.index);
  out.push_back(r.seed);
  out.push_back(r.rolls);
  out.push_back(r.hands);
  out.push_back(static_cast<std::int64_t>(r.end));
  for (int p = 0; p <= kBatchSeats; ++p) {
    out.push_back(r.net[p].raw);
    out.push_back(r.wagered[p].raw);
    out.push_back(static_cast<std::int64_t>(r.outcome[p]));
    out.push_back(r.onlyBet[p]);
  }
  out.push_back(static_cast<std::int64_t>(r.stop.size()));
  for (char c : r.stop) out.push_back(static_cast<unsigned char>(c));
}

std::size_t Unpack(const std::vector<std::int64_t>& in, std::size_t i, SessionResult& r) {
  r.index = in[i++];
  r.seed = static_cast<Long>(in[i++]);
  r.rolls = static_cast<Long>(in[i++]);
  r.hands = static_cast<Long>(in[i++]);
  r.end = static_cast<SessionEnd>(in[i++]);
  for (int p = 0; p <= kBatchSeats; ++p) {
    r.net[p].raw = in[i++];
    r.wagered[p].raw = in[i++];
    r.outcome[p] = static_cast<PlayerOutcome>(in[i++]);
    r.onlyBet[p] = static_cast<int>(in[i++]);
  }
  const auto n = static_cast<std::size_t>(in[i++]);
  r.stop.assign(n, ' ');
  for (std::size_t c = 0; c < n; ++c) r.stop[c] = static_cast<char>(in[i++]);
  return i;
}
#endif

}  // namespace

BatchRanks StartRanks() {
  BatchRanks ranks;
#ifdef RAVELTON_MPI
  // Only a process that mpirun started joins a job: a plain start stays one
  // process and needs no MPI run-time.
  if (std::getenv("OMPI_COMM_WORLD_SIZE") || std::getenv("PMI_SIZE") || std::getenv("PMIX_RANK")) {
    MPI_Init(nullptr, nullptr);
    MPI_Comm_rank(MPI_COMM_WORLD, &ranks.rank);
    MPI_Comm_size(MPI_COMM_WORLD, &ranks.size);
    ranks.mpi = true;
  }
#endif
  return ranks;
}

void EndRanks(const BatchRanks& ranks) {
#ifdef RAVELTON_MPI
  if (ranks.mpi) MPI_Finalize();
#else
  (void)ranks;
#endif
}

std::vector<std::int64_t> RankSessions(const BatchRanks& ranks, std::int64_t sessions) {
  std::vector<std::int64_t> mine;
  for (std::int64_t k = ranks.rank; k < sessions; k += ranks.size) mine.push_back(k);
  return mine;
}

std::vector<SessionResult> GatherResults(const BatchRanks& ranks, std::vector<SessionResult> mine) {
#ifdef RAVELTON_MPI
  if (ranks.mpi && ranks.size > 1) {
    std::vector<std::int64_t> packed;
    for (const SessionResult& r : mine) Pack(r, packed);
    long long count = static_cast<long long>(packed.size());
    std::vector<long long> counts(static_cast<std::size_t>(ranks.size));
    MPI_Gather(&count, 1, MPI_LONG_LONG, counts.data(), 1, MPI_LONG_LONG, 0, MPI_COMM_WORLD);
    std::vector<int> sizes(counts.size()), offsets(counts.size());
    std::size_t total = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
      sizes[i] = static_cast<int>(counts[i]);
      offsets[i] = static_cast<int>(total);
      total += static_cast<std::size_t>(counts[i]);
    }
    std::vector<std::int64_t> all(ranks.rank == 0 ? total : 0);
    MPI_Gatherv(packed.data(), static_cast<int>(count), MPI_INT64_T, all.data(), sizes.data(),
                offsets.data(), MPI_INT64_T, 0, MPI_COMM_WORLD);
    if (ranks.rank != 0) return {};
    std::vector<SessionResult> results;
    for (std::size_t i = 0; i < all.size();) {
      SessionResult r;
      i = Unpack(all, i, r);
      results.push_back(std::move(r));
    }
    std::sort(results.begin(), results.end(), ByIndex);
    return results;
  }
#else
  (void)ranks;
#endif
  std::sort(mine.begin(), mine.end(), ByIndex);
  return mine;
}

bool AnyRank(const BatchRanks& ranks, bool flag) {
#ifdef RAVELTON_MPI
  if (ranks.mpi && ranks.size > 1) {
    int in = flag ? 1 : 0, out = 0;
    MPI_Allreduce(&in, &out, 1, MPI_INT, MPI_MAX, MPI_COMM_WORLD);
    return out != 0;
  }
#else
  (void)ranks;
#endif
  return flag;
}
