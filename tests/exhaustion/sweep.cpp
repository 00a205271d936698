#include "exhaustion/sweep.h"

#include <algorithm>
#include <stdexcept>

#include "exhaustion/require.h"
#include "simulation/child.h"
#include "simulation/descriptors.h"

namespace {

// What is to be seen of a subject.
struct Sight {
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

// How the road goes as long as there is memory.
struct Course {
  Sight start;
  Sight end;
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

Sight sightOf(const Subject& subject, heap::Ending ending, std::string standardError) {
  return {ending,
          subject.answer,
          std::move(standardError),
          subject.logger.messages,
          subject.identifier ? holdingsOf(*subject.identifier) : Holdings(),
          subject.record};
}

struct Taken {
  heap::Attempt attempt;
  Sight sight;
};

Taken take(const Road& road, Subject& subject, int refused = 0,
           heap::Shortage shortage = heap::Shortage::once) {
  heap::Attempt attempt{};
  subject.answer.clear();
  subject.logger.messages.clear();
  std::string standardError = standardErrorOf(
      [&] { attempt = heap::attempt([&] { road.call(subject); }, refused, shortage); });
  return {attempt, sightOf(subject, attempt.ending, std::move(standardError))};
}

Course courseOf(const Road& road, bool withLogger) {
  Subject subject(withLogger);
  road.prepare(subject);
  Sight start = sightOf(subject, heap::Ending::returned, "");
  Taken taken = take(road, subject);
  require(taken.sight.ending == road.ending && taken.sight.answer == road.answer,
          "the road does not lead where it should");
  return {std::move(start), std::move(taken.sight), taken.attempt.allocations};
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

// What the road appends to a list that had come so far.
template <typename List>
List appended(const List& list, const List& start, const List& end) {
  return joined(list, List(end.begin() + static_cast<std::ptrdiff_t>(start.size()), end.end()));
}

bool isUndetermined(Holdings holdings, const Sight& sight) {
  holdings.determined = false;
  return sameIdentity(sight.holdings, holdings);
}

void requireNoFalseIdentity(const Road& road, const Course& course, const Sight& sight) {
  const Holdings& start = course.start.holdings;
  Holdings passing = start;
  passing.name = road.passingName;
  require(sameIdentity(sight.holdings, start) || isUndetermined(start, sight) ||
              sameIdentity(sight.holdings, course.end.holdings) ||
              (!road.passingName.empty() && isUndetermined(passing, sight)),
          "the identifier claims an identity that it has not read completely");
}

void requireWholeRecord(const Course& course, const Sight& sight) {
  const HardwareIdentity& start = course.start.record;
  const HardwareIdentity& end = course.end.record;
  const HardwareIdentity& record = sight.record;
  require(record.name == start.name || record.name == end.name, "the name of the record is cut");
  require(record.number == start.number || (record.number == end.number && record.name == end.name),
          "the record has a number without its name");
  require(isBetween(start.aliases, record.aliases, end.aliases), "an alias of the record is cut");
}

// Whether the list is one that a walk makes which failed somewhere on its way.
bool isOfFailedWalk(const FailedWalk& failed, const Course& course, const Sight& sight) {
  const Params& list = sight.holdings.params;
  const Params& whole = course.end.holdings.params;
  for (std::size_t reached = course.start.holdings.params.size(); reached <= whole.size();
       ++reached) {
    const Params collected(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(reached));
    const Params end = joined(collected, failed.appendedNext(collected));
    if (sight.ending == heap::Ending::returned ? list == end : isBetween(collected, list, end)) {
      return true;
    }
  }
  return false;
}

bool failedWalk(const Road& road, const Course& course, const Taken& taken) {
  const bool returned = taken.sight.ending == heap::Ending::returned;
  return road.failedWalk && taken.attempt.refusedLibrary &&
         (!returned || taken.sight.answer == road.failedWalk->answer) &&
         isOfFailedWalk(*road.failedWalk, course, taken.sight);
}

void requireNothingCut(const Road& road, const Course& course, const Taken& taken) {
  const Sight& sight = taken.sight;
  requireNoFalseIdentity(road, course, sight);
  requireWholeRecord(course, sight);
  require(beginsWith(course.end.messages, sight.messages), "a message is cut or left out");
  require(beginsWith(course.end.standardError, sight.standardError) &&
              isOfWholeLines(sight.standardError),
          "a line on standard error is cut or left out");
  require(isBetween(course.start.holdings.catalogue, sight.holdings.catalogue,
                    course.end.holdings.catalogue),
          "an identity of the catalogue is cut or left out");
  require(
      isBetween(course.start.holdings.params, sight.holdings.params, course.end.holdings.params) ||
          failedWalk(road, course, taken),
      "a parameter is cut or left out");
}

void requireSame(const Sight& sight, const Sight& end) {
  require(sight.ending == end.ending, "the call ends in another way");
  require(sight.answer == end.answer, "the call answers something else");
  require(sight.standardError == end.standardError, "the message on standard error is another");
  require(sight.holdings == end.holdings, "the identifier holds something else");
  require(sight.record == end.record, "the record holds something else");
}

// A caller is told of an object for which there is no memory. What the C library does without
// memory, it does for itself, but for a walk.
void requireTold(const Road& road, const Course& course, const Taken& taken) {
  const bool told = taken.sight.ending == heap::Ending::badAlloc;
  require(told == taken.attempt.refusedObject, "std::bad_alloc does not reach the caller");
  if (told) {
    require(taken.sight.answer.empty(), "there is an answer although the call did not return");
  } else if (!failedWalk(road, course, taken)) {
    requireSame(taken.sight, course.end);
  }
}

// With memory again, the same subject goes the whole road, from wherever it was.
void requireWorking(const Road& road, const Course& course, Subject& subject, const Sight& before) {
  const Holdings& from = before.holdings;
  const Holdings& start = course.start.holdings;
  Sight end = course.end;
  end.holdings.catalogue = appended(from.catalogue, start.catalogue, end.holdings.catalogue);
  end.holdings.params = appended(from.params, start.params, end.holdings.params);
  end.record.aliases =
      appended(before.record.aliases, course.start.record.aliases, end.record.aliases);
  requireSame(take(road, subject).sight, end);
}

heap::Attempt trySubject(const Road& road, const Course& course, bool withLogger, int refused,
                         heap::Shortage shortage) {
  Subject subject(withLogger);
  road.prepare(subject);
  const Taken taken = take(road, subject, refused, shortage);
  require(taken.attempt.refusedObject || taken.attempt.refusedLibrary,
          "the road has fewer allocations than before");
  requireTold(road, course, taken);
  requireNothingCut(road, course, taken);
  requireWorking(road, course, subject, taken.sight);
  return taken.attempt;
}

void tryRoad(const Road& road, const Course& course, bool withLogger, int refused,
             heap::Shortage shortage) {
  const Resources before = resources();
  const heap::Attempt attempt = trySubject(road, course, withLogger, refused, shortage);
  requireNothingLeft(before, resources(), road.failedWalk && attempt.refusedLibrary);
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

int sweep(const Road& road, bool withLogger, heap::Shortage shortage) {
  const Course course = courseOf(road, withLogger);
  const bool heard = !course.end.messages.empty();
  if (withLogger && !heard) {
    return course.allocations;
  }
  for (int refused = 1; refused <= course.allocations; ++refused) {
    const auto attempt = [&] { tryRoad(road, course, withLogger, refused, shortage); };
    try {
      road.inOwnProcess ? inOwnProcess(attempt) : attempt();
    } catch (const std::runtime_error& error) {
      throw std::runtime_error((withLogger ? "with a logger, " : "without a logger, ") +
                               (shortage == heap::Shortage::once ? "" : std::string("from ")) +
                               "allocation " + std::to_string(refused) + " of " +
                               std::to_string(course.allocations) + ": " + error.what());
    }
  }
  return course.allocations;
}

}  // namespace

Allocations sweep(const Road& road) {
  Board board;
  road.board(board);
  Allocations allocations{};
  for (const heap::Shortage shortage : {heap::Shortage::once, heap::Shortage::lasting}) {
    allocations.withoutLogger = sweep(road, false, shortage);
    allocations.withLogger = sweep(road, true, shortage);
  }
  require(allocations.withLogger > 0, "the road takes no memory");
  return allocations;
}
