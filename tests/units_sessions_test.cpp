// Units and constants in typed sessions: tests/data/units_sessions.txt holds
// command lines with the stack text and message each must leave.
#include <fstream>

#include "tests/units_testing.h"

namespace quorvel::test {
namespace {

struct SessionStep {
    std::string kind;   // "rpn", "alg", "=", "plain=", "!", "depth"
    std::string text;
    int line = 0;
};

struct Session {
    std::string name;
    std::vector<SessionStep> steps;
};

void PrintTo(const Session& s, std::ostream* os) { *os << s.name; }

std::vector<Session> loadSessions() {
    std::vector<Session> sessions;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/units_sessions.txt");
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.empty() || line[0] == '#') continue;
        if (line.rfind("--- ", 0) == 0) {
            sessions.push_back(Session{line.substr(4), {}});
            continue;
        }
        if (sessions.empty()) continue;
        const size_t space = line.find(' ');
        SessionStep step{line.substr(0, space), space == std::string::npos ? "" : line.substr(space + 1), number};
        sessions.back().steps.push_back(std::move(step));
    }
    return sessions;
}

class UnitSessions : public UnitsTest, public testing::WithParamInterface<Session> {};

TEST_P(UnitSessions, Runs) {
    for (const SessionStep& step : GetParam().steps) {
        SCOPED_TRACE("units_sessions.txt line " + std::to_string(step.line));
        if (step.kind == "rpn") {
            rpn(fromUtf8(step.text));
        } else if (step.kind == "alg") {
            alg(fromUtf8(step.text));
        } else if (step.kind == "=") {
            EXPECT_EQ(shown(), step.text);
        } else if (step.kind == "plain=") {
            EXPECT_EQ(shown(0, 0x80), step.text);
        } else if (step.kind == "!") {
            EXPECT_EQ(toUtf8(host.shownText()), step.text);
        } else if (step.kind == "depth") {
            EXPECT_EQ(app.stack.count(), std::stoi(step.text));
        } else {
            ADD_FAILURE() << "unknown step " << step.kind;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Data, UnitSessions, testing::ValuesIn(loadSessions()),
                         [](const testing::TestParamInfo<Session>& info) { return info.param.name; });

TEST(UnitSessionData, HasSessions) { EXPECT_GE(loadSessions().size(), 15u); }

}  // namespace
}  // namespace quorvel::test
