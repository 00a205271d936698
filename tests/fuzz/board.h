#ifndef OVXID_TESTS_FUZZ_BOARD_H
#define OVXID_TESTS_FUZZ_BOARD_H

#include <string>

#include "reference/determination.h"
#include "simulation/board.h"

// The board of this process, made by the first call, which has to come before any thread.
Board& board();

void write(const std::string& path, const std::string& bytes);

// Forgets the messages of the input before. For some inputs, chosen by their size, every read(2)
// gives a few bytes only, so that a file comes in pieces.
void beginInput(std::size_t size);

// Determines the identity by a copy of the identifier, which has this catalogue, and expects what
// the reference tells.
void expectSameDetermination(OvxIdentifier identifier,
                             const std::vector<HardwareIdentity>& catalogue);

// Expects of the front end the messages that the library has for the same board.
void expectFrontEndToAgree();

// Expects of the front end that a walk over the node gives it this listing.
void expectFrontEndToList(const std::string& listing);

#endif
