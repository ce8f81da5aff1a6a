#pragma once

int acetRegProdkey();                                          // acet-reg-prodkey
inline constexpr auto &acetRegMachineProdkey = acetRegProdkey; // acet-reg-machine-prodkey: the same under another name
int acetRegUserProdkey();                                      // acet-reg-user-prodkey

int acetGetConfig(); // acet_get_config
int acetSetConfig(); // acet_set_config
