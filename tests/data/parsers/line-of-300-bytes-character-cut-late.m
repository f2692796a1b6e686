- (void)draw                                                                                                                                                                                                                                                 　                                           {
}
- (void)hide {
}
