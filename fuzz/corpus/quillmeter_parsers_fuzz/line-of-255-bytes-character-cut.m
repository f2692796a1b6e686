- (void)draw                                                                                                                  　                                                                                                                             {
}
- (void)hide {
}
