// Card ranks as texts: 1 the ace, 2..10, 11 jack, 12 queen, 13 king, 0 the joker.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// 'A' for 1 and 14, 'K', 'Q', 'J', 'T', the digit for 2..9, 'W' for 0; '?' for anything else.
char RankChar(int rank);

// The rank of a character of RankChar in either letter case ('W' is 0); -1 when it is none.
int RankFromChar(char c);

// A rank list as a person types it ("2, k,a") -> as it is stored ("2,13,1"). Every separator ends a
// token, but for blanks beside another one or at an end; a token is read by its first character (T
// J Q K A in either case) or as a number. No list when a token is empty, not a number or 0, or when
// there are more than 13 tokens. A text of blanks, or of nothing, is an empty list.
std::optional<std::string> ParseRankList(std::string_view typed);

// A stored rank list -> as it is shown: "2,13,1" -> "2,K,A" (14 is shown as A too). Tokens past the
// thirteenth are dropped.
std::string FormatRankList(std::string_view stored);

// The numbers of a stored list, each piece by the rule of ParseInt, at most limit of them. An empty
// text holds none; "2," holds 2 and 0.
std::vector<int> ReadRankNumbers(std::string_view stored, std::size_t limit);
