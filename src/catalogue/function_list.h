#pragma once

namespace tavix::mdlPubSelf {

// A click on a row of lst: shows the description of its function in lblProgS, and the link to its options
// where it has some. The master row tells what its next tick will do. A caption that no function bears (any
// more) leaves lblProgS as it is.
void lst_Click();
// Shows the options window at the page of the function in focus in lst, or as it stands where that has none.
void lblOpt_Click();

}  // namespace tavix::mdlPubSelf
