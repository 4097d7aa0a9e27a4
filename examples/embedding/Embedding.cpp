// The smallest host: asks the domain library whether the addresses named on the command line may be shown as links.

#include <TessaryDomain/application/DocumentWebsiteURL.h>
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
}
