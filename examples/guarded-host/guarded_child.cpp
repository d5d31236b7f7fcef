#include "guarded_child.h"

#include <boost/asio/buffers_iterator.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/streambuf.hpp>
#include <boost/dll/runtime_symbol_info.hpp>
#include <boost/process.hpp>
#include <cstdio>
#include <system_error>

namespace bp = boost::process;

ChildEnd RunThisProgram(const std::vector<std::string>& arguments, std::chrono::seconds limit,
                        std::size_t maxOutput) {
  boost::asio::io_context events;
  boost::asio::streambuf output(maxOutput);
  ChildEnd end;
  bp::child child(
      boost::dll::program_location().string(), bp::args(arguments),
      bp::std_in<bp::null, bp::std_err> stderr, bp::std_out > output, events,
      bp::on_exit = [&end](int status, const std::error_code& /*unused*/) {
        end.inTime = true;
        end.succeeded = status == 0;
      });
  events.run_for(limit);
  std::error_code gone;
  if (!end.inTime) child.terminate(gone);
  const auto data = output.data();
  end.output.assign(boost::asio::buffers_begin(data), boost::asio::buffers_end(data));
  return end;
}
