- (void)draw                                                                                                                　                                                                                                                               {
}
- (void)hide {
}
