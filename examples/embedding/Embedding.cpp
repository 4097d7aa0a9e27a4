// The smallest host: asks the domain library whether the addresses named on the command line may be shown as links, and
// shows in German what was stored in French.

#include <TessaryDomain/application/DocumentWebsiteURL.h>
#include <TessaryLocalization/L10n.h>
#include <cstdio>
#include <string>
#include <vector>

int main(int argumentCount, char** arguments) {
  std::vector<std::string> addresses(arguments + 1, arguments + argumentCount);
  if (addresses.empty()) addresses = {"https://example.test/plan", "javascript:alert(1)"};
  for (const std::string& address : addresses) {
    const bool isWebsite = tessary::DocumentWebsiteURL::validated(address).has_value();
    std::printf("%s: %s\n", address.c_str(), isWebsite ? "a website" : "refused");
  }
  const std::string stored = tessary::L10n::text("나중에 볼 것", {}, {}, "fr");
  std::printf("%s: %s\n", stored.c_str(), tessary::L10n::display(stored, "de").c_str());
}
