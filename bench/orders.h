/// The order loop of a measuring program, so that two programs can take turns.
#pragma once

#include <iostream>
#include <string>

namespace bench {

/// Prints "ready", then reads lines "order number" from standard input and answers each with one line, until
/// the input ends.
template <class Obey>
void ObeyOrders(Obey&& obey) {
  std::cout.precision(17);
  std::cout << "ready" << std::endl;
  std::string order;
  for (double number = 0.0; std::cin >> order >> number;) std::cout << obey(order, int(number)) << std::endl;
}

}  // namespace bench
