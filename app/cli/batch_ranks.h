// The processes of a batch: one alone, or the ranks of an MPI job when
// ravelton-cli was built with RAVELTON_MPI and started by mpirun. Ranks take
// sessions by index (k mod ranks) and rank 0 gathers every result.
#pragma once

#include <cstdint>
#include <vector>

#include "batch/batch.h"

struct BatchRanks {
  int rank = 0;
  int size = 1;
  bool mpi = false;
};

// Joins the MPI job when started under mpirun; otherwise one process.
BatchRanks StartRanks();
// Leaves the MPI job (nothing without one).
void EndRanks(const BatchRanks& ranks);
// The session indices of this rank out of 0..sessions-1.
std::vector<std::int64_t> RankSessions(const BatchRanks& ranks, std::int64_t sessions);
// On rank 0: every rank's results, ordered by session index. Elsewhere: empty.
std::vector<SessionResult> GatherResults(const BatchRanks& ranks, std::vector<SessionResult> mine);
// The OR of a flag over the ranks (every rank learns whether any failed).
bool AnyRank(const BatchRanks& ranks, bool flag);
