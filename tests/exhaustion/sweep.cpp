#include "exhaustion/sweep.h"

#include <algorithm>
#include <stdexcept>

#include "exhaustion/require.h"
#include "simulation/child.h"
#include "simulation/descriptors.h"

namespace {

// What is to be seen of a subject.
struct Observation {
  heap::Ending ending;
  std::string answer;
  std::string standardError;
  Messages messages;
  Holdings holdings;
  HardwareIdentity record;
};

// What is taken of the machine.
struct Resources {
  heap::Use heap;
  std::ptrdiff_t descriptors;
};

// What happens as long as there is memory.
struct Baseline {
  Observation start;
  Observation end;
  int allocations;
};

Resources resources() {
  const std::ptrdiff_t descriptors = openDescriptors();
  return {heap::use(), descriptors};
}

// When nftw(3) has no memory for the tree of the directories it has seen, it loses the record that
// was to go there.
bool isRecordOfWalk(const Resources& before, const Resources& now) {
  const std::ptrdiff_t blocks = now.heap.blocks - before.heap.blocks;
  return blocks == 1 && now.heap.objects == before.heap.objects;
}

void requireNothingLeft(const Resources& before, const Resources& now, bool walked) {
  require(now.descriptors == before.descriptors, "a descriptor is left open");
  require((now.heap.blocks == before.heap.blocks && now.heap.bytes == before.heap.bytes) ||
              (walked && isRecordOfWalk(before, now)),
          "memory is not given back");
}

Observation observationOf(const Subject& subject, heap::Ending ending, std::string standardError) {
  return {ending,
          subject.answer,
          std::move(standardError),
          subject.logger.messages,
          subject.identifier ? holdingsOf(*subject.identifier) : Holdings(),
          subject.record};
}

struct Run {
  heap::Attempt attempt;
  Observation observation;
};

Run runOf(const Scenario& scenario, Subject& subject, int refused = 0,
          heap::Shortage shortage = heap::Shortage::once) {
  heap::Attempt attempt{};
  subject.answer.clear();
  subject.logger.messages.clear();
  std::string standardError = standardErrorOf(
      [&] { attempt = heap::attempt([&] { scenario.call(subject); }, refused, shortage); });
  return {attempt, observationOf(subject, attempt.ending, std::move(standardError))};
}

Baseline baselineOf(const Scenario& scenario, bool withLogger) {
  Subject subject(withLogger);
  scenario.prepare(subject);
  Observation start = observationOf(subject, heap::Ending::returned, "");
  Run run = runOf(scenario, subject);
  require(run.observation.ending == scenario.ending && run.observation.answer == scenario.answer,
          "the call does not answer as it should");
  return {std::move(start), std::move(run.observation), run.attempt.allocations};
}

template <typename List>
bool beginsWith(const List& list, const List& beginning) {
  return beginning.size() <= list.size() &&
         std::equal(beginning.begin(), beginning.end(), list.begin());
}

bool isOfWholeLines(const std::string& text) { return text.empty() || text.back() == '\n'; }

template <typename List>
bool isBetween(const List& shortest, const List& list, const List& longest) {
  return beginsWith(list, shortest) && beginsWith(longest, list);
}

template <typename List>
List joined(List list, const List& next) {
  list.insert(list.end(), next.begin(), next.end());
  return list;
}

// What the call appends to a list that had come so far.
template <typename List>
List appended(const List& list, const List& start, const List& end) {
  return joined(list, List(end.begin() + static_cast<std::ptrdiff_t>(start.size()), end.end()));
}

bool isUndetermined(Holdings holdings, const Observation& observation) {
  holdings.determined = false;
  return sameIdentity(observation.holdings, holdings);
}

void requireNoFalseIdentity(const Scenario& scenario, const Baseline& baseline,
                            const Observation& observation) {
  const Holdings& start = baseline.start.holdings;
  Holdings passing = start;
  passing.name = scenario.passingName;
  require(sameIdentity(observation.holdings, start) || isUndetermined(start, observation) ||
              sameIdentity(observation.holdings, baseline.end.holdings) ||
              (!scenario.passingName.empty() && isUndetermined(passing, observation)),
          "the identifier claims an identity that it has not read completely");
}

void requireWholeRecord(const Baseline& baseline, const Observation& observation) {
  const HardwareIdentity& start = baseline.start.record;
  const HardwareIdentity& end = baseline.end.record;
  const HardwareIdentity& record = observation.record;
  require(record.name == start.name || record.name == end.name, "the name of the record is cut");
  require(record.number == start.number || (record.number == end.number && record.name == end.name),
          "the record has a number without its name");
  require(isBetween(start.aliases, record.aliases, end.aliases), "an alias of the record is cut");
}

// Whether the list is one that a walk makes which failed somewhere on its way.
bool isOfFailedWalk(const FailedWalk& failed, const Baseline& baseline,
                    const Observation& observation) {
  const Params& list = observation.holdings.params;
  const Params& whole = baseline.end.holdings.params;
  for (std::size_t reached = baseline.start.holdings.params.size(); reached <= whole.size();
       ++reached) {
    const Params collected(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(reached));
    const Params end = joined(collected, failed.appendedNext(collected));
    if (observation.ending == heap::Ending::returned ? list == end
                                                     : isBetween(collected, list, end)) {
      return true;
    }
  }
  return false;
}

bool failedWalk(const Scenario& scenario, const Baseline& baseline, const Run& run) {
  const bool returned = run.observation.ending == heap::Ending::returned;
  return scenario.failedWalk && run.attempt.refusedLibrary &&
         (!returned || run.observation.answer == scenario.failedWalk->answer) &&
         isOfFailedWalk(*scenario.failedWalk, baseline, run.observation);
}

void requireNothingCut(const Scenario& scenario, const Baseline& baseline, const Run& run) {
  const Observation& observation = run.observation;
  requireNoFalseIdentity(scenario, baseline, observation);
  requireWholeRecord(baseline, observation);
  require(beginsWith(baseline.end.messages, observation.messages), "a message is cut or left out");
  require(beginsWith(baseline.end.standardError, observation.standardError) &&
              isOfWholeLines(observation.standardError),
          "a line on standard error is cut or left out");
  require(isBetween(baseline.start.holdings.catalogue, observation.holdings.catalogue,
                    baseline.end.holdings.catalogue),
          "an identity of the catalogue is cut or left out");
  require(isBetween(baseline.start.holdings.params, observation.holdings.params,
                    baseline.end.holdings.params) ||
              failedWalk(scenario, baseline, run),
          "a parameter is cut or left out");
}

void requireSame(const Observation& observation, const Observation& end) {
  require(observation.ending == end.ending, "the call ends in another way");
  require(observation.answer == end.answer, "the call answers something else");
  require(observation.standardError == end.standardError,
          "the message on standard error is another");
  require(observation.holdings == end.holdings, "the identifier holds something else");
  require(observation.record == end.record, "the record holds something else");
}

// A caller is told of an object for which there is no memory. What the C library does without
// memory, it does for itself, but for a walk.
void requireTold(const Scenario& scenario, const Baseline& baseline, const Run& run) {
  const bool told = run.observation.ending == heap::Ending::badAlloc;
  require(told == run.attempt.refusedObject, "std::bad_alloc does not reach the caller");
  if (told) {
    require(run.observation.answer.empty(), "there is an answer although the call did not return");
  } else if (!failedWalk(scenario, baseline, run)) {
    requireSame(run.observation, baseline.end);
  }
}

// With memory again, the same subject does all of it, from wherever it was.
void requireWorking(const Scenario& scenario, const Baseline& baseline, Subject& subject,
                    const Observation& before) {
  const Holdings& from = before.holdings;
  const Holdings& start = baseline.start.holdings;
  Observation end = baseline.end;
  end.holdings.catalogue = appended(from.catalogue, start.catalogue, end.holdings.catalogue);
  end.holdings.params = appended(from.params, start.params, end.holdings.params);
  end.record.aliases =
      appended(before.record.aliases, baseline.start.record.aliases, end.record.aliases);
  requireSame(runOf(scenario, subject).observation, end);
}

heap::Attempt trySubject(const Scenario& scenario, const Baseline& baseline, bool withLogger,
                         int refused, heap::Shortage shortage) {
  Subject subject(withLogger);
  scenario.prepare(subject);
  const Run run = runOf(scenario, subject, refused, shortage);
  require(run.attempt.refusedObject || run.attempt.refusedLibrary,
          "the scenario has fewer allocations than before");
  requireTold(scenario, baseline, run);
  requireNothingCut(scenario, baseline, run);
  requireWorking(scenario, baseline, subject, run.observation);
  return run.attempt;
}

void tryScenario(const Scenario& scenario, const Baseline& baseline, bool withLogger, int refused,
                 heap::Shortage shortage) {
  const Resources before = resources();
  const heap::Attempt attempt = trySubject(scenario, baseline, withLogger, refused, shortage);
  requireNothingLeft(before, resources(), scenario.failedWalk && attempt.refusedLibrary);
}

void inOwnProcess(const std::function<void()>& call) {
  const Outcome outcome = inChild([&] {
    call();
    return 0;
  });
  if (outcome.status != 0) {
    throw std::runtime_error(outcome.err);
  }
}

int sweep(const Scenario& scenario, bool withLogger, heap::Shortage shortage) {
  const Baseline baseline = baselineOf(scenario, withLogger);
  const bool heard = !baseline.end.messages.empty();
  if (withLogger && !heard) {
    return baseline.allocations;
  }
  for (int refused = 1; refused <= baseline.allocations; ++refused) {
    const auto attempt = [&] { tryScenario(scenario, baseline, withLogger, refused, shortage); };
    try {
      scenario.inOwnProcess ? inOwnProcess(attempt) : attempt();
    } catch (const std::runtime_error& error) {
      throw std::runtime_error((withLogger ? "with a logger, " : "without a logger, ") +
                               (shortage == heap::Shortage::once ? "" : std::string("from ")) +
                               "allocation " + std::to_string(refused) + " of " +
                               std::to_string(baseline.allocations) + ": " + error.what());
    }
  }
  return baseline.allocations;
}

}  // namespace

Allocations sweep(const Scenario& scenario) {
  Board board;
  scenario.board(board);
  Allocations allocations{};
  for (const heap::Shortage shortage : {heap::Shortage::once, heap::Shortage::lasting}) {
    allocations.withoutLogger = sweep(scenario, false, shortage);
    allocations.withLogger = sweep(scenario, true, shortage);
  }
  require(allocations.withLogger > 0, "the scenario takes no memory");
  return allocations;
}
