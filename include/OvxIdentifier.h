#ifndef OVXID_OVXIDENTIFIER_H
#define OVXID_OVXIDENTIFIER_H

#include <ovxid/records.h>

#include <cstdint>
#include <iosfwd>
#include <log4cpp/Priority.hh>
#include <string>
#include <vector>

/**
 * @file
 * @brief The identity of a board, its parameters, and the launching of programs with them.
 */

/**
 * @class cQlog
 * @brief The logger of the board's closed logging library, libqlog.so.0, or of the program's own.
 *
 * The library calls the non-virtual methods debug, info, warn, error and fatal, each declared as
 * void debug(const char* text, ...), through weak references. A program that passes a logger must
 * define all five so that the dynamic linker finds them: outside the class and with default
 * visibility. A call of a missing method crashes, since its address is null.
 *
 * The one argument is the message, a finished text, and none ever follows it. A logger takes it as
 * text. One that gives it to vprintf(3) as the format crashes on a board with the description
 * "Gate %s%n".
 */
class cQlog;
struct FTW;
struct stat;

/**
 * @brief Tells which board the program runs on and hands that knowledge to other programs.
 *
 * Construct one, ask it for getHardwareName() or getHardwareNumber(), or call loadParams() and then
 * listParams() or execute(). Nothing is determined or collected before it is asked for.
 *
 * The identifier is undetermined until determineIdentity(), which the queries call, finds an
 * identity; while it is determined, the queries answer from memory. Only success is kept: on a
 * board that is not recognised, every query searches, and reports, again.
 *
 * The board's facts come from the kernel: the device-tree node /proc/device-tree/orvanix, uname(2),
 * /proc/cpuinfo and the network interfaces. Names that the kernel reports are looked up in the
 * catalogue of known identities, /etc/known_ovx_ids. Every path is fixed.
 *
 * Messages go to the logger that the constructor was given; search_wan() and add_wan_mac() alone
 * report their failures on standard error instead.
 *
 * The library throws no exceptions of its own, but those of the standard library pass through:
 * std::out_of_range where determineIdentity() says so, and from every member std::bad_alloc, or
 * std::length_error for a text that is longer than std::string allows. The identifier can be used
 * again afterwards, and no name, value or list entry was cut. Only an assignment that throws leaves
 * some fields of the one identifier and some of the other: assign again, or destroy it.
 *
 * An identifier is used by one thread at a time, and only one thread of a process may collect
 * parameters or launch a program. Copies share the logger and nothing else.
 */
class __attribute__((visibility("default"))) OvxIdentifier {
 public:
  /**
   * @brief Makes an undetermined identifier, named "Unknown" with number -1, and loads the
   *        catalogue of known identities.
   *
   * Logs "Creating OvxIdentifier..." at DEBUG and calls findKnownIdentities(). The board is not
   * identified yet.
   *
   * @param logger Receives every log message, as a finished text that it must not take for a
   *        format, and must be there as long as members are called. It stays the caller's: it is
   *        never freed or replaced. With null, nothing is logged and no message is composed.
   */
  explicit OvxIdentifier(cQlog* logger);

  /**
   * @brief Returns the board's name, determining the identity first when it is not determined yet.
   *
   * A determination is followed by logFullId(), at DEBUG after success and at ERROR after failure.
   *
   * @return The name, every byte of it: one from the device tree usually ends in a NUL byte, and is
   *         empty when the first line of the description is. "Unknown" when the board is not
   *         recognised, or when a "boardid" without a "description" identifies it and there was no
   *         name before.
   * @throw std::out_of_range As determineIdentity() does.
   */
  std::string getHardwareName();

  /**
   * @brief Returns the board's number, determining the identity first when it is not determined
   *        yet, as getHardwareName() does.
   *
   * @return The number; -1 when the board is not recognised, 64 for a standard PC. Recognised
   *         boards may have any number, -1 included.
   * @throw std::out_of_range As determineIdentity() does.
   */
  std::int32_t getHardwareNumber();

  /**
   * @brief Determines the identity if necessary and appends the board parameters to the list.
   *
   * Calls getHardwareNumber() and then parse_params(), whether or not the board was recognised. A
   * second call appends every parameter a second time.
   *
   * @throw std::out_of_range As determineIdentity() does; no parameter is appended then.
   */
  void loadParams();

  /**
   * @brief Determines which board this is, anew if that was known already.
   *
   * The first source that yields an identity ends the search:
   * -# /proc/device-tree/orvanix: an openable "boardid" is enough. Its number and the first line
   *    of "description" are taken without the catalogue, NUL bytes and carriage returns included. A
   *    "boardid" of blanks or nothing leaves the number as it was, one that begins with no number
   *    gives 0, and one out of range the nearest limit. Without a "description" the name stays.
   * -# uname(2): the kernel release after its last '-', compared with the aliases of the catalogue.
   * -# uname(2): the machine "x86_64" is the identity "x86_64 PC" with number 64.
   * -# /proc/cpuinfo: the first line that begins with "Hardware", from two characters after the
   *    position of its first ':' (from its second character when it has none), compared with all
   *    names of the catalogue and then with its aliases.
   *
   * Names and aliases are compared whole, case-sensitively and untrimmed, and the first identity of
   * the catalogue that matches wins. After a failed uname(2), /proc/cpuinfo is next. The aliases of
   * an earlier determination stay unless a catalogue identity replaces them. When every source
   * fails, the name is reset to "Unknown" and the number to -1.
   *
   * The steps are logged at DEBUG, a repeated determination and a failed uname(2) at WARN, and
   * failure at ERROR; the report of logFullId() is left to the queries.
   *
   * @return True when the board was identified; false when the identifier is undetermined now.
   * @throw std::out_of_range If the only ':' of the "Hardware" line is its last character. The
   *        identifier is undetermined then; its name may already be that of the "description".
   */
  bool determineIdentity();

  /**
   * @brief Hands a message to the logger, or drops it when there is none.
   *
   * @param message The text, up to its first NUL byte. The logger receives it as it stands, and no
   *        further argument.
   * @param level Chooses the logger's method: FATAL (0) fatal, ERROR (300) error, WARN (400) warn,
   *        INFO (600) info; every other value debug.
   */
  void tryLog(std::string message, log4cpp::Priority::PriorityLevel level);

  /**
   * @brief Hands a message to the logger at DEBUG.
   *
   * @param message The text, as for the overload with a level.
   */
  void tryLog(std::string message);

  /**
   * @brief Logs the identity as it stands, without determining it.
   *
   * For a determined identity: "Full identity: ", then "Real name: " and the name, "Hardware
   * number: " and the number, and "Aliases: " and the aliases with a blank behind each alias.
   * Otherwise: "Identity is unknown: ", name and number alike, and no aliases.
   *
   * @param level The level of every one of these messages, as for tryLog().
   */
  void logFullId(log4cpp::Priority::PriorityLevel level);

  /**
   * @brief Appends the catalogue of known identities to what the identifier holds.
   *
   * The constructor calls this; a second call appends every identity a second time. The records
   * come from the lines of /etc/known_ovx_ids that parseIdentityLine() accepts, in order. The file
   * has no syntax for comments. When it cannot be opened, which is logged at WARN, a built-in table
   * is used: 1 "Tessaryn TQBLITE", 2 "Tessaryn TQB" and 3 "Orvanix Starter Kit". The table is not
   * used for a file that can be opened and has no identity. A read error ends the catalogue without
   * a message. Every other step is logged at DEBUG.
   */
  void findKnownIdentities();

  /**
   * @brief Reads one line of the catalogue, "name:number[:alias]...".
   *
   * Values are separated by one or more colons; colons at the beginning or the end of the line are
   * ignored. Values are not trimmed. Only the number may follow white space; it may have a sign,
   * and what follows its digits is ignored. The catalogue itself is not changed.
   *
   * @param record Receives the name and the number; the aliases are appended to those it has. A
   *        line of fewer than two values changes nothing. A line whose second value does not begin
   *        with a decimal number, or with one outside the signed 32-bit range, changes only the
   *        name.
   * @param line The line without its newline.
   * @return True when the line was accepted, which is logged at DEBUG; a rejected line is logged at
   *         WARN.
   */
  bool parseIdentityLine(HardwareIdentity& record, std::string line);

  /**
   * @brief Appends the board parameters to the list, without determining the identity.
   *
   * In this order: "OVX_ID" and "OVX_DESC", the number and the name, unless the number is negative;
   * one parameter a property below /proc/device-tree/orvanix, see OvxDTParser; "OVX_WAN" by
   * search_wan(), only when that walk failed and the number is 64; and "OVX_WAN_ID" by
   * add_wan_mac(). A second call appends them all a second time. Logs nothing.
   */
  void parse_params();

  /**
   * @brief Appends one parameter to the list, even if it has one of that name. Logs nothing.
   *
   * @param name The name, stored as given: no prefix "OVX_" is added.
   * @param value The value, stored as given.
   */
  void addParameter(std::string name, std::string value);

  /**
   * @brief Writes the parameters in list order, one name=value line each, every byte as it is.
   *
   * The stream is flushed after each line; its width and fill are not applied. An empty list writes
   * nothing.
   *
   * @param out The stream to write to.
   * @return The same stream, whose state tells whether the writing succeeded.
   */
  std::ostream& listParams(std::ostream& out);

  /**
   * @brief Looks for the WAN interface and appends its name as "OVX_WAN".
   *
   * It is the first entry not named "lo" in the kernel's list of configured IPv4 addresses, of
   * which the first 1024 bytes are examined (25 addresses on 64-bit machines). Without one, nothing
   * is appended. A failed socket(2) or ioctl(2) appends nothing and is reported on standard error,
   * as "socket" or "ioctl(SIOCGIFCONF)" by perror(3).
   */
  void search_wan();

  /**
   * @brief Appends "OVX_WAN_ID", the MAC address of the interface that the first "OVX_WAN" of the
   *        list names.
   *
   * The value is the six bytes in lower-case hexadecimal, one after the other: a byte below 0x80
   * without leading zeros, a higher one sign-extended to four digits. 02:42:ac:11:00:02 gives
   * "242ffac1102".
   *
   * Without an "OVX_WAN", nothing is appended. When the kernel does not know the interface, or
   * socket(2) or ioctl(2) fails, nothing is appended and "ioctl(wan_mac)" is reported on standard
   * error by perror(3). An interface name of 16 or more bytes before its first NUL aborts the
   * process.
   */
  void add_wan_mac();

  /**
   * @brief Exports the parameters into the environment and replaces the process by a program.
   *
   * The list is exported as it stands, which is empty unless loadParams() was called. Later
   * parameters overwrite earlier ones and variables that were set before; values are cut at their
   * first NUL byte; an empty name and one with a '=' are skipped. The export stays when the program
   * cannot be run. Nothing is printed or logged.
   *
   * @param argc The number of arguments, not counting the terminating null pointer. Used with the
   *        shell only.
   * @param argv The arguments, with a null pointer at the end; not null. Without the shell, argv[0]
   *        is the program, looked up in PATH, and must not be null.
   * @param useShell True runs the shell that the variable SHELL names, or ovxDefaultShell when it
   *        is not set, with all of argv as its arguments. A parameter named SHELL is exported first
   *        and so names the shell.
   * @return Only on failure: -1, with errno from execvp(3); EINVAL, before anything is exported,
   *         for a negative argc with the shell.
   */
  int execute(int argc, char** argv, bool useShell);

 private:
  bool mDetermined;
  std::string mHardwareName;
  std::vector<std::string> mHardwareAliases;
  std::int32_t mHardwareNumber;
  std::vector<HardwareIdentity> mKnownIdentities;
  cQlog* mLogger;
  std::vector<ovx_param> mParams;
};

/**
 * @brief Walks a device-tree node and turns its properties into board parameters.
 *
 * Every file below the node, at any depth, gives the parameter "OVX_" and the file's own name in
 * upper case, whose value is the file's first line: bytes are kept, the NUL at the end of a string
 * included. A file named "name" is skipped; one that cannot be opened gives an empty value. The
 * order is that of the directory.
 *
 * Never instantiated: nftw(3) passes its callback no context, so the identifier that a walk feeds
 * is kept in a variable of the process, and walks must not run at the same time.
 */
class __attribute__((visibility("default"))) OvxDTParser {
 public:
  /** The identifier that the walk feeds: null before the first walk, then that of the last one. */
  static OvxIdentifier* mOVxId;

  /**
   * @brief Walks a directory and appends a parameter for each file to the list of an identifier.
   *
   * Symbolic links are followed. Unreadable directories are skipped, a start directory included.
   *
   * @param id The identifier to feed. mOVxId keeps pointing to it after the walk.
   * @param dir The path of the directory to walk. Not modified.
   * @return 0 when the walk was completed; -1 with errno from nftw(3) when it failed, as it does
   *         when the directory does not exist.
   */
  static int parse(OvxIdentifier* id, char* dir);

  /**
   * @brief Handles one entry of the walk. Called by nftw(3); mOVxId must be set.
   *
   * @param fpath The path of the entry, which is opened when the entry is a file.
   * @param sb The status of the entry. Not used.
   * @param typeflag The type of the entry. Everything but FTW_F yields nothing.
   * @param ftwbuf The position of the entry's own name in the path.
   * @return Always 0, so that the walk goes on.
   */
  static int ftw_cb(const char* fpath, const struct stat* sb, int typeflag, struct FTW* ftwbuf);
};

#endif
