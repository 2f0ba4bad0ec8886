# Runs the same ravelton-cli batch in one process and on two MPI ranks and
# fails unless both print the same per-session lines and the same summary.
# Usage: cmake -DCLI=ravelton-cli -DMPIEXEC=mpirun -P CompareBatchRanks.cmake
# Containers run as root and may have one core: Open MPI is told that both
# are fine, and to copy between ranks without cross-memory attach.
set(ENV{OMPI_ALLOW_RUN_AS_ROOT} 1)
set(ENV{OMPI_ALLOW_RUN_AS_ROOT_CONFIRM} 1)
set(ENV{OMPI_MCA_btl_vader_single_copy_mechanism} none)
set(ENV{OMPI_MCA_rmaps_base_oversubscribe} 1)
set(args batch --player Ann=300 "--bet=Ann:Pass Line=10" --win-rule Ann:2 --lose-rule Ann:2
         --player Bo=200 --bet Bo:field=5 --win-rule Bo:2 --lose-rule Bo:2
         --sessions 301 --rolls 150 --stop-win Ann:100 --seed 9 --threads 1 --csv)
foreach(mode summary per-session)
  set(extra "")
  if(mode STREQUAL "per-session")
    set(extra --per-session)
  endif()
  execute_process(COMMAND ${CLI} ${args} ${extra} RESULT_VARIABLE rc1 OUTPUT_VARIABLE one ERROR_VARIABLE err1)
  if(NOT rc1 EQUAL 0)
    message(FATAL_ERROR "one process failed (${rc1}): ${err1}")
  endif()
  execute_process(COMMAND ${MPIEXEC} -np 2 --oversubscribe ${CLI} ${args} ${extra}
                  RESULT_VARIABLE rc2 OUTPUT_VARIABLE two ERROR_VARIABLE err2)
  if(NOT rc2 EQUAL 0)
    message(FATAL_ERROR "two ranks failed (${rc2}): ${err2}")
  endif()
  if(NOT one STREQUAL two)
    message(FATAL_ERROR "${mode}: two ranks differ from one process\none:\n${one}\ntwo:\n${two}")
  endif()
  string(LENGTH "${one}" size)
  if(size LESS 100)
    message(FATAL_ERROR "${mode}: too little output: ${one}")
  endif()
endforeach()
message(STATUS "two ranks match one process")
